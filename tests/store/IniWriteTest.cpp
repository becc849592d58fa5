#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "foundation/IniFileError.h"
#include "foundation/LibraryFolder.h"
#include "foundation/RegStore.h"
#include "support/Doubles.h"

#ifdef __unix__
#include <sys/resource.h>

#include <csignal>
#endif

namespace vorelle::test {
namespace {

#ifdef _WIN32
const QByteArray kEol = "\r\n";
#else
const QByteArray kEol = "\n";
#endif

const QString kHeader = QStringLiteral(
    "; last modification at 05.03.2005/08:05:09 with Vorelle V 6.71  "
    "(c) Haldrake Software - www.haldrake.de");

class IniWriteTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }

    QString path() const { return dir_.filePath(QStringLiteral("test.ini")); }

    void writeFile(const QStringList& lines) {
        QFile f(path());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        for (const QString& line : lines) {
            f.write(ToAnsi(line) + "\r\n");
        }
    }
    QStringList readFile() const {
        QFile f(path());
        if (!f.open(QIODevice::ReadOnly)) {
            return {QStringLiteral("<missing>")};
        }
        QByteArray content = f.readAll();
        EXPECT_TRUE(content.endsWith(kEol));
        content.chop(kEol.size());
        QStringList lines;
        for (const QByteArray& line : content.split('\n')) {
            QByteArray l = line;
            if (kEol.size() == 2) {
                EXPECT_TRUE(l.endsWith('\r'));
                l.chop(1);
            }
            lines << FromAnsi(l);
        }
        return lines;
    }

    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
    QTemporaryDir dir_;
};

TEST_F(IniWriteTest, MissingFileGivesFourLines) {
    EXPECT_FALSE(IniWrite(path(), QStringLiteral("Daten"), QStringLiteral("Pfad"),
                          QStringLiteral("C:\\Lager")));
    EXPECT_EQ(readFile(), (QStringList{kHeader, QString(), QStringLiteral("[Daten]"),
                                       QStringLiteral("Pfad=C:\\Lager")}));
}

struct IniCase {
    const char* name;
    QStringList before;
    QString section;
    QString key;
    QString value;
    QStringList after;  // without the header line and its empty line
};

class IniWriteCases : public IniWriteTest, public ::testing::WithParamInterface<IniCase> {};

TEST_P(IniWriteCases, KeepsOtherLinesAndOrder) {
    const IniCase& c = GetParam();
    writeFile(c.before);
    IniWrite(path(), c.section, c.key, c.value);
    QStringList expected{kHeader, QString()};
    expected << c.after;
    EXPECT_EQ(readFile(), expected);
}

const QStringList kTwoSections{
    QStringLiteral("; old header"), QString(), QStringLiteral("[A]"), QStringLiteral("x=1"),
    QStringLiteral("y=2"),          QString(), QStringLiteral("[B]"), QStringLiteral("z=3")};

INSTANTIATE_TEST_SUITE_P(
    Entries, IniWriteCases,
    ::testing::Values(IniCase{"NewKeyAtEndOfSectionBeforeEmptyLine",
                              kTwoSections,
                              "A",
                              "w",
                              "9",
                              {"[A]", "x=1", "y=2", "w=9", "", "[B]", "z=3"}},
                      IniCase{"NewKeyBeforeNextSection",
                              {"h", "", "[A]", "x=1", "[B]", "z=3"},
                              "a",
                              "w",
                              "9",
                              {"[A]", "x=1", "w=9", "[B]", "z=3"}},
                      IniCase{"NewKeyInLastSectionAppended",
                              kTwoSections,
                              "B",
                              "w",
                              "9",
                              {"[A]", "x=1", "y=2", "", "[B]", "z=3", "w=9"}},
                      IniCase{"NewSectionBehindEmptyLine",
                              kTwoSections,
                              "C",
                              "k",
                              "v",
                              {"[A]", "x=1", "y=2", "", "[B]", "z=3", "", "[C]", "k=v"}},
                      IniCase{"ExistingKeyReplaced",
                              kTwoSections,
                              "A",
                              "y",
                              "neu",
                              {"[A]", "x=1", "y=neu", "", "[B]", "z=3"}},
                      IniCase{"CaseDifferentKeyTakesCallersCase",
                              kTwoSections,
                              "a",
                              "Y",
                              "neu",
                              {"[A]", "x=1", "Y=neu", "", "[B]", "z=3"}},
                      IniCase{"SameKeyInOtherSectionUntouched",
                              kTwoSections,
                              "B",
                              "x",
                              "7",
                              {"[A]", "x=1", "y=2", "", "[B]", "z=3", "x=7"}},
                      IniCase{"OnlyTextBeforeFirstEqualsIsTheKey",
                              {"h", "", "[A]", "x=y=1"},
                              "A",
                              "x=y",
                              "2",
                              {"[A]", "x=y=1", "x=y=2"}},
                      IniCase{"FirstTwoLinesAreAlwaysReplaced",
                              {"[A]", "x=1", "y=2"},
                              "A",
                              "z",
                              "3",
                              {"y=2", "", "[A]", "z=3"}},
                      IniCase{"EmptyFileGetsTheSection", {}, "S", "k", "v", {"", "[S]", "k=v"}},
                      IniCase{"AnsiTextRoundTrips",
                              {"h", "", "[Maße]", "Größe=1"},
                              "MASSE",
                              "Größe",
                              "2 €",
                              {"[Maße]", "Größe=1", "", "[MASSE]", "Größe=2 €"}},
                      IniCase{
                          "LfOnlyLinesAreRead", {"h\n\n[A]\nx=1"}, "A", "x", "2", {"[A]", "x=2"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(IniWriteTest, EmptyFileNameBecomesTheLibrarysIni) {
    QTemporaryDir library;
    ASSERT_TRUE(library.isValid());
    const QByteArray previous = qgetenv("VORELLE_LIBRARY_DIR");
    qputenv("VORELLE_LIBRARY_DIR", library.path().toLocal8Bit());
    QString file;
    IniWrite(file, QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("v"));
    qputenv("VORELLE_LIBRARY_DIR", previous);
    EXPECT_EQ(file, QDir::toNativeSeparators(library.path() + QStringLiteral("/Vorelle.ini")));
    EXPECT_TRUE(QFile::exists(library.filePath(QStringLiteral("Vorelle.ini"))));
}

TEST_F(IniWriteTest, LeavesNoTemporaryFileBehind) {
    writeFile(kTwoSections);
    IniWrite(path(), QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"));
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("test.ini")});
}

TEST_F(IniWriteTest, UnreadableFileThrowsAndStaysAsItWas) {
    // a folder in the file's place cannot be read as a file
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("test.ini")));
    EXPECT_THROW(IniWrite(path(), QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v")),
                 IniFileError);
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(IniWriteTest, MissingFolderThrows) {
    const QString file = dir_.filePath(QStringLiteral("no/such/folder/x.ini"));
    try {
        IniWrite(file, QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"));
        FAIL() << "no error";
    } catch (const IniFileError& e) {
        EXPECT_EQ(e.file(), file);
        EXPECT_FALSE(e.reason().isEmpty());
    }
}

#ifdef __unix__
// The file size limit of the process makes the write of the new content fail half-way.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &old_);
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = old_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, previousHandler_);
    }

private:
    rlimit old_{};
    void (*previousHandler_)(int) = nullptr;
};

TEST_F(IniWriteTest, FailedWriteLeavesTheOldFileIntact) {
    writeFile(kTwoSections);
    QFile f(path());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray before = f.readAll();
    f.close();
    {
        FileSizeLimit limit(static_cast<rlim_t>(before.size()));
        EXPECT_THROW(
            IniWrite(path(), QStringLiteral("A"),
                     QStringLiteral("a-rather-long-key-that-grows-the-file"), QString(200, u'v')),
            IniFileError);
    }
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), before);
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("test.ini")});
}
#endif

}  // namespace
}  // namespace vorelle::test
