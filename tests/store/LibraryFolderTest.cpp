#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "foundation/LibraryFolder.h"

namespace vorelle {
namespace {

class LibraryFolderTest : public ::testing::Test {
protected:
    void SetUp() override { previous_ = qgetenv("VORELLE_LIBRARY_DIR"); }
    void TearDown() override { qputenv("VORELLE_LIBRARY_DIR", previous_); }
    QByteArray previous_;
};

TEST_F(LibraryFolderTest, EnvironmentNamesTheFolderAndItIsCreated) {
    QTemporaryDir base;
    ASSERT_TRUE(base.isValid());
    const QString wanted = base.path() + QStringLiteral("/deep/er/");
    qputenv("VORELLE_LIBRARY_DIR", wanted.toLocal8Bit());
    EXPECT_EQ(LibraryFolder(), QDir::cleanPath(wanted));
    EXPECT_TRUE(QFileInfo(wanted).isDir());
}

TEST_F(LibraryFolderTest, WithoutEnvironmentTheLibrarysOwnFolderOrAUserFolder) {
    qunsetenv("VORELLE_LIBRARY_DIR");
    const QString own = LibraryFileFolder();
    ASSERT_FALSE(own.isEmpty());
    EXPECT_TRUE(QDir(own).entryList(QDir::Files).filter(QStringLiteral("vorelle")).size() > 0)
        << own.toStdString() << " should hold the library's file";
    const QString folder = LibraryFolder();
    EXPECT_TRUE(QFileInfo(folder).isDir());
    if (QFileInfo(own).isWritable()) {
        EXPECT_EQ(folder, QDir::cleanPath(own));
    }
}

}  // namespace
}  // namespace vorelle
