// Several processes on one store file at once.
//
// The test program starts copies of itself that run only the StoreChild.Writer test; the
// environment tells a copy its store file, its name, how many values it writes and over how
// many shared names, where error.log goes, and whether it waits for "go" on its input.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "foundation/LibraryFolder.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"

namespace vorelle::test {
namespace {

const QString kProgram = QStringLiteral("Prog");
const QString kShared = QStringLiteral("Shared");

constexpr char kChildFile[] = "VORELLE_STORE_CHILD_FILE";
constexpr char kChildName[] = "VORELLE_STORE_CHILD_NAME";
constexpr char kChildCount[] = "VORELLE_STORE_CHILD_COUNT";
constexpr char kChildShared[] = "VORELLE_STORE_CHILD_SHARED";
constexpr char kChildLog[] = "VORELLE_STORE_CHILD_LOG";
constexpr char kChildWaits[] = "VORELLE_STORE_CHILD_WAITS";

// Value i of a writer: its name, the number and a filler that depends on both, so that a
// value made of parts of two writes is told apart from any real one.
QString writtenValue(const QString& writer, int i) {
    const QChar fill(u'a' + (i + static_cast<int>(writer.at(0).unicode())) % 26);
    return writer + u':' + QString::number(i) + u':' + QString(64 + i % 7, fill);
}

// The writer and number of a value that writtenValue made; false for anything else.
bool parseValue(const QString& value, QString* writer, int* index) {
    static const QRegularExpression form(QStringLiteral("^([A-Z][0-9]*):([0-9]+):"));
    const QRegularExpressionMatch match = form.match(value);
    if (!match.hasMatch()) {
        return false;
    }
    *writer = match.captured(1);
    *index = match.captured(2).toInt();
    return value == writtenValue(*writer, *index);
}

QString get(const QString& key, const QString& name) {
    return RegGet(kProgram, key, name, QStringLiteral("<none>"));
}

QString sharedName(int k) {
    return QStringLiteral("k%1").arg(k);
}

QString ownName(int i) {
    return QStringLiteral("own%1").arg(i);
}

// The lines of error.log in the library's folder that come from the store.
std::string storeErrors() {
    QFile log(LibraryFolder() + QStringLiteral("/error.log"));
    if (!log.open(QIODevice::ReadOnly)) {
        return {};
    }
    std::string lines;
    for (const QByteArray& line : log.readAll().split('\n')) {
        if (line.contains("@SqliteRegistry@")) {
            lines += line.trimmed().toStdString() + '\n';
        }
    }
    return lines;
}

TEST(StoreChild, Writer) {
    const QString file = qEnvironmentVariable(kChildFile);
    if (file.isEmpty()) {
        GTEST_SKIP() << "runs only as a child of the store tests";
    }
    qputenv("VORELLE_LIBRARY_DIR", qgetenv(kChildLog));
    const QString name = qEnvironmentVariable(kChildName);
    const int count = qEnvironmentVariableIntValue(kChildCount);
    const int shared = qMax(1, qEnvironmentVariableIntValue(kChildShared));
    const bool ownFirst = name.back().isDigit() && name.back().digitValue() % 2 == 0;
    SqliteRegistry store(file);
    ScopedService<RegistryBackend> scope(store);
    if (qEnvironmentVariableIsSet(kChildWaits)) {
        std::puts("ready");
        std::fflush(stdout);
        char line[16];
        if (!std::fgets(line, sizeof line, stdin)) {
            return;
        }
    }
    for (int i = 0; i < count; ++i) {
        // Names that every writer uses, and names of its own; half of the writers begin with
        // a name of their own, so that the loss of a first write would show.
        if (ownFirst) {
            RegSet(kProgram, name, ownName(i), writtenValue(name, i));
        }
        RegSet(kProgram, kShared, sharedName(i % shared), writtenValue(name, i));
        if (!ownFirst) {
            RegSet(kProgram, name, ownName(i), writtenValue(name, i));
        }
        RegSet(kProgram, name, QStringLiteral("last"), QString::number(i));
        std::printf("done %d\n", i);
        std::fflush(stdout);
    }
}

// Writer processes on one store file, started together, some of them killed on the way.
class Writers : public ::testing::Test {
protected:
    struct Child {
        QString name;
        std::unique_ptr<QProcess> process;
        QByteArray pending;
        int lastDone = -1;   // the last value whose writes returned
        int killAfter = -2;  // killed once lastDone reaches this; -1 at the start, -2 never
        bool killed = false;
        bool ready = false;
    };

    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }
    QString file() const { return dir_.filePath(QStringLiteral("store.db")); }

    Child& add(const QString& name, int count, int shared, int killAfter = -2) {
        auto& child = children_.emplace_back();
        child.name = name;
        child.killAfter = killAfter;
        child.process = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QString::fromLatin1(kChildFile), file());
        env.insert(QString::fromLatin1(kChildName), name);
        env.insert(QString::fromLatin1(kChildCount), QString::number(count));
        env.insert(QString::fromLatin1(kChildShared), QString::number(shared));
        env.insert(QString::fromLatin1(kChildLog), LibraryFolder());
        env.insert(QString::fromLatin1(kChildWaits), QStringLiteral("1"));
        // The copy's own temporary folders go below ours, so that a killed one leaves none.
        env.insert(QStringLiteral("TMPDIR"), dir_.path());
        child.process->setProcessEnvironment(env);
        child.process->setProcessChannelMode(QProcess::SeparateChannels);
        return child;
    }

    // Starts every child, lets all of them go at once when each is ready, kills the ones
    // so marked when they reach their point, and returns when all have ended.
    void runAll(int timeoutMs) {
        QEventLoop loop;
        int running = static_cast<int>(children_.size());
        int ready = 0;
        bool startFailure = false;
        for (Child& child : children_) {
            QProcess* process = child.process.get();
            QObject::connect(process, &QProcess::readyReadStandardOutput, &loop, [&, process] {
                Child& c = childOf(process);
                c.pending += process->readAllStandardOutput();
                qsizetype end = 0;
                while ((end = c.pending.indexOf('\n')) >= 0) {
                    const QByteArray line = c.pending.left(end);
                    c.pending.remove(0, end + 1);
                    if (line == "ready" && !c.ready) {
                        c.ready = true;
                        if (++ready == static_cast<int>(children_.size())) {
                            goAll();
                        }
                    } else if (line.startsWith("done ")) {
                        c.lastDone = line.mid(5).toInt();
                        watch(c);
                    }
                }
                if (!c.killed && c.killAfter >= 0 && c.lastDone >= c.killAfter) {
                    killChild(c);
                }
            });
            QObject::connect(process, &QProcess::finished, &loop, [&, process] {
                if (!childOf(process).ready && !startFailure) {
                    // The others would wait for it in vain.
                    startFailure = true;
                    loop.quit();
                }
                if (--running == 0) {
                    loop.quit();
                }
            });
            process->start(QCoreApplication::applicationFilePath(),
                           {QStringLiteral("--gtest_filter=StoreChild.Writer")});
        }
        bool timedOut = false;
        QTimer::singleShot(timeoutMs, &loop, [&] {
            timedOut = true;
            loop.quit();
        });
        if (running > 0) {
            loop.exec();
        }
        for (Child& child : children_) {
            child.process->disconnect(&loop);
            if (timedOut || startFailure) {
                child.process->kill();
                child.process->waitForFinished(10000);
            }
            // What a killed child printed before it died counts too.
            child.pending += child.process->readAllStandardOutput();
            for (const QByteArray& line : child.pending.split('\n')) {
                if (line.startsWith("done ")) {
                    child.lastDone = line.mid(5).toInt();
                }
            }
        }
        for (Child& child : children_) {
            EXPECT_TRUE(child.ready) << child.name.toStdString() << " ended before it was ready: "
                                     << child.process->readAllStandardError().toStdString();
        }
        ASSERT_FALSE(startFailure);
        ASSERT_FALSE(timedOut) << "the writers did not end within " << timeoutMs << " ms";
    }

    // A connection of this process, open all the while, reads the progress of a writer as
    // soon as the writer reports it: it sees the writer's committed value, never an older one
    // that it read before.
    void watch(const Child& child) {
        if (!watcher_) {
            watcher_ = std::make_unique<SqliteRegistry>(file());
        }
        QByteArray data;
        const long status = watcher_->readValue(
            HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Prog\\") + child.name,
            QStringLiteral("last"), &data);
        ++watched_;
        if (status != REG_SUCCESS || data.toInt() < child.lastDone) {
            stale_ << QStringLiteral("%1 reported %2, read %3 (%4)")
                          .arg(child.name)
                          .arg(child.lastDone)
                          .arg(QString::fromLatin1(data))
                          .arg(status);
        }
    }

    Child& childOf(const QProcess* process) {
        for (Child& child : children_) {
            if (child.process.get() == process) {
                return child;
            }
        }
        std::abort();
    }

    void goAll() {
        for (Child& child : children_) {
            child.process->write("go\n");
        }
        for (Child& child : children_) {
            child.process->waitForBytesWritten(1000);
        }
        for (Child& child : children_) {
            if (child.killAfter == -1) {
                killChild(child);
            }
        }
    }

    static void killChild(Child& child) {
        child.killed = true;
        child.process->kill();  // SIGKILL
    }

    // Every value whose writes returned is in the store; of a killed writer, the one it was
    // writing may be there too, and nothing after it.
    void expectOwnValues(const Child& child, int count) {
        const bool survived = !child.killed || child.process->exitStatus() == QProcess::NormalExit;
        if (survived) {
            EXPECT_EQ(child.process->exitStatus(), QProcess::NormalExit)
                << child.name.toStdString();
            EXPECT_EQ(child.process->exitCode(), 0)
                << child.name.toStdString() << ": "
                << child.process->readAllStandardError().toStdString();
            EXPECT_EQ(child.lastDone, count - 1) << child.name.toStdString();
        }
        for (int i = 0; i <= child.lastDone; ++i) {
            ASSERT_EQ(get(child.name, ownName(i)), writtenValue(child.name, i))
                << "value " << i << " of writer " << child.name.toStdString() << ", which got "
                << child.lastDone + 1 << " values through";
        }
        const QString next = get(child.name, ownName(child.lastDone + 1));
        if (survived) {
            EXPECT_EQ(next, QStringLiteral("<none>"));
        } else {
            EXPECT_TRUE(next == QStringLiteral("<none>") ||
                        next == writtenValue(child.name, child.lastDone + 1))
                << next.toStdString();
            EXPECT_EQ(get(child.name, ownName(child.lastDone + 2)), QStringLiteral("<none>"));
        }
    }

    // A shared name holds one whole value that some writer gave it, and no value older than a
    // later write of that writer to the name that returned: the last writer wins.
    void expectSharedValue(int k, int shared, int count) {
        const QString value = get(kShared, sharedName(k));
        QString writer;
        int index = -1;
        ASSERT_TRUE(parseValue(value, &writer, &index)) << "k" << k << ": " << value.toStdString();
        EXPECT_EQ(index % shared, k) << value.toStdString();
        const Child* author = nullptr;
        for (const Child& child : children_) {
            if (child.name == writer) {
                author = &child;
            }
        }
        ASSERT_NE(author, nullptr) << value.toStdString();
        EXPECT_LE(index, qMin(author->lastDone + 1, count - 1)) << value.toStdString();
        EXPECT_GT(index + shared, author->lastDone)
            << "k" << k << " holds " << value.toStdString() << ", older than a later write of "
            << writer.toStdString();
    }

    QTemporaryDir dir_;
    std::vector<Child> children_;
    std::unique_ptr<SqliteRegistry> watcher_;
    int watched_ = 0;
    QStringList stale_;
};

TEST_F(Writers, TwoProcessesWriteTheSameKeysAtOnce) {
    constexpr int kCount = 300;
    constexpr int kSharedNames = 50;
    const std::string errorsBefore = storeErrors();
    add(QStringLiteral("A"), kCount, kSharedNames);
    add(QStringLiteral("B"), kCount, kSharedNames);
    runAll(120000);
    EXPECT_TRUE(stale_.isEmpty()) << stale_.join(u'\n').toStdString();
    EXPECT_GT(watched_, 0);
    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    for (const Child& child : children_) {
        expectOwnValues(child, kCount);
    }
    for (int k = 0; k < kSharedNames; ++k) {
        expectSharedValue(k, kSharedNames, kCount);
    }
    EXPECT_EQ(storeErrors(), errorsBefore);
}

TEST_F(Writers, AWriterKilledMidStreamLosesNothingItFinished) {
    const std::string errorsBefore = storeErrors();
    add(QStringLiteral("K"), 1000000, 50, 150);
    runAll(120000);
    const Child& child = children_.front();
    EXPECT_TRUE(child.killed);
    EXPECT_EQ(child.process->exitStatus(), QProcess::CrashExit);
    EXPECT_GE(child.lastDone, 150);

    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    expectOwnValues(child, 1000000);
    // The store takes new writes after the crash.
    RegSet(kProgram, kShared, QStringLiteral("after"), QStringLiteral("crash"));
    EXPECT_EQ(get(kShared, QStringLiteral("after")), QStringLiteral("crash"));
    EXPECT_EQ(storeErrors(), errorsBefore);
}

// Eight writers start on a fresh file at the same moment, each writing values of its own and
// values under names that all of them share; two are killed at random points, possibly while
// they open the file. VORELLE_STRESS_SEED repeats a run.
TEST_F(Writers, EightStartAtOnceTwoAreKilledNoReturnedWriteIsLost) {
    constexpr int kWriters = 8;
    constexpr int kCount = 200;
    constexpr int kSharedNames = 16;
    const unsigned seed =
        qEnvironmentVariableIsSet("VORELLE_STRESS_SEED")
            ? static_cast<unsigned>(qEnvironmentVariableIntValue("VORELLE_STRESS_SEED"))
            : std::random_device{}();
    SCOPED_TRACE(::testing::Message() << "VORELLE_STRESS_SEED=" << seed);
    std::mt19937 random(seed);
    std::vector<int> order(kWriters);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random);
    std::uniform_int_distribution<int> point(-1, kCount / 2);
    std::vector<int> killAfter(kWriters, -2);
    killAfter[order[0]] = point(random);
    killAfter[order[1]] = point(random);

    const std::string errorsBefore = storeErrors();
    for (int w = 0; w < kWriters; ++w) {
        add(QStringLiteral("W%1").arg(w), kCount, kSharedNames, killAfter[w]);
    }
    runAll(60000);
    EXPECT_TRUE(stale_.isEmpty()) << stale_.join(u'\n').toStdString();
    EXPECT_GT(watched_, 0);
    ASSERT_TRUE(QFile::exists(file())) << "no writer made the store";

    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    for (const Child& child : children_) {
        SCOPED_TRACE(::testing::Message()
                     << child.name.toStdString() << " killed after " << child.killAfter
                     << ", got through " << child.lastDone + 1);
        expectOwnValues(child, kCount);
    }
    for (int k = 0; k < kSharedNames; ++k) {
        expectSharedValue(k, kSharedNames, kCount);
    }
    EXPECT_EQ(storeErrors(), errorsBefore);
}

}  // namespace
}  // namespace vorelle::test
