// The places of forms in the store file of a real program: a copy of this test program
// opens managed forms on a store file and saves their places over and over until it is
// killed; the store must open afterwards and hold the last place saved whole. And a user
// finds a closed form's keys with the command-line tool.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "PlaceDoubles.h"
#include "formwizard/WindowPosition.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

constexpr char kChildFile[] = "VORELLE_PLACES_CHILD_FILE";
const QStringList kForms{QStringLiteral("frmEins"), QStringLiteral("frmZwei")};

// The place of save i: the form's size and the control's place, all told apart by i. The
// form stays where it is: its window procedure writes each move at once, on its own.
QString expectedPlace(int i) {
    return QStringLiteral("1500|1200|%1|%2|%3|%4")
        .arg(6000 + 15 * i)
        .arg(4500 + 15 * i)
        .arg(15 * (i % 50))
        .arg(15 * (i % 30));
}

QString storedPlace(const QString& form) {
    QStringList parts;
    for (const char* name : {"Left", "Top", "Width", "Height"}) {
        parts << test::placeValue(form, QString::fromLatin1(name));
    }
    parts << test::placeValue(form + QStringLiteral("\\cmdOk"), QStringLiteral("Left"));
    parts << test::placeValue(form + QStringLiteral("\\cmdOk"), QStringLiteral("Top"));
    return parts.join(u'|');
}

// Runs only as the child of PlacesInAStoreFile.AKilledProgramLeavesTheLastWholePlace.
TEST(PlacesChild, SavesUntilKilled) {
    const QString file = qEnvironmentVariable(kChildFile);
    if (file.isEmpty()) {
        GTEST_SKIP() << "runs only as a child of the places tests";
    }
    SqliteRegistry store(file);
    ScopedService<RegistryBackend> scope(store);
    std::vector<std::unique_ptr<Form>> forms;
    for (const QString& name : kForms) {
        forms.push_back(
            test::managedForm(name, [](FormWizard* w) { w->setDoLoadSaveWithControls(true); }));
        test::addBox(forms.back().get(), QStringLiteral("cmdOk"), QRect(0, 0, 80, 20));
        forms.back()->show();
        forms.back()->move(100, 80);
    }
    for (int i = 0; i < 20000; ++i) {
        for (const auto& form : forms) {
            form->setWidth(6000 + 15 * i);
            form->setHeight(4500 + 15 * i);
            QObject* control = form->Controls(QStringLiteral("cmdOk"));
            control->setProperty("Left", 15 * (i % 50));
            control->setProperty("Top", 15 * (i % 30));
            WindowPosSave(form.get(), true, false);
        }
        std::printf("saved %d\n", i);
        std::fflush(stdout);
    }
}

class PlacesInAStoreFile : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }
    QString file() const { return dir_.filePath(QStringLiteral("store.db")); }

    QTemporaryDir dir_;
};

TEST_F(PlacesInAStoreFile, AKilledProgramLeavesTheLastWholePlace) {
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QString::fromLatin1(kChildFile), file());
    env.insert(QStringLiteral("TMPDIR"), dir_.path());  // a killed copy leaves its folders here
    child.setProcessEnvironment(env);
    int lastSaved = -1;
    QByteArray pending;
    QEventLoop loop;
    QObject::connect(&child, &QProcess::readyReadStandardOutput, &loop, [&] {
        pending += child.readAllStandardOutput();
        qsizetype end = 0;
        while ((end = pending.indexOf('\n')) >= 0) {
            const QByteArray line = pending.left(end);
            pending.remove(0, end + 1);
            if (line.startsWith("saved ")) {
                lastSaved = line.mid(6).toInt();
            }
        }
        if (lastSaved >= 40 && child.state() == QProcess::Running) {
            child.kill();  // SIGKILL, in the middle of the next saves
        }
    });
    QObject::connect(&child, &QProcess::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(120000, &loop, &QEventLoop::quit);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=PlacesChild.SavesUntilKilled")});
    ASSERT_TRUE(child.waitForStarted(60000));
    loop.exec();
    if (child.state() != QProcess::NotRunning) {
        child.kill();
        child.waitForFinished(10000);
    }
    ASSERT_EQ(child.exitStatus(), QProcess::CrashExit)
        << "the copy ended on its own: " << child.readAllStandardError().toStdString();
    ASSERT_GE(lastSaved, 40);

    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    for (const QString& form : kForms) {
        const QString place = storedPlace(form);
        const int saved = (place.section(u'|', 2, 2).toInt() - 6000) / 15;
        EXPECT_GE(saved, lastSaved) << form.toStdString() << " lost a save that had returned";
        EXPECT_EQ(place, expectedPlace(saved)) << form.toStdString() << ": a place saved in part";
        EXPECT_EQ(test::placeValue(form + QStringLiteral("_init"), QStringLiteral("WindowState")),
                  "0");
    }
}

TEST_F(PlacesInAStoreFile, TheToolListsTheKeysOfAClosedForm) {
    const QString tool = QStringLiteral(VORELLE_BINARY_DIR "/apps/tools/vorelle-reg");
    if (!QFile::exists(tool)) {
        GTEST_SKIP() << "vorelle-reg is not built";
    }
    test::FakeMessageBox boxes;
    ScopedService<MessageBoxService> boxScope(boxes);
    {
        SqliteRegistry store(file());
        ScopedService<RegistryBackend> scope(store);
        auto form = test::managedForm(QStringLiteral("frmListe"));
        form->show();
        form->setLeft(1650);
        form->setTop(1350);
        form->setWidth(6300);
        form->close();
    }
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("VORELLE_REGISTRY"), file());
    p.setProcessEnvironment(env);
    p.start(tool, {QStringLiteral("list"), test::placeProgram()});
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    const QStringList lines = QString::fromUtf8(p.readAllStandardOutput()).split(u'\n');
    auto block = [&](const QString& key) {
        const qsizetype at = lines.indexOf(QStringLiteral("  ") + key + u'\\');
        QStringList values;
        for (qsizetype i = at + 1; at >= 0 && i < lines.size() && lines[i].startsWith("    \"");
             ++i) {
            values << lines[i].trimmed();
        }
        values.sort();
        return values;
    };
    EXPECT_EQ(block(QStringLiteral("frmListe")),
              (QStringList{"\"Height\"=\"4560\"", "\"Left\"=\"1650\"", "\"Top\"=\"1350\"",
                           "\"Width\"=\"6300\"", "\"WindowState\"=\"0\""}))
        << lines.join(u'\n').toStdString();
    EXPECT_EQ(block(QStringLiteral("frmListe_init")).size(), 5) << lines.join(u'\n').toStdString();
}

}  // namespace
}  // namespace vorelle
