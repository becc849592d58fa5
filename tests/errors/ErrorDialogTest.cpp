#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "errors/ScopedLanguage.h"
#include "host/platform/ErrorDialog.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const QString kOkHintEn = QStringLiteral(
    "The function could not executed correctly. Without the execution of this function the "
    "program can't be continued properly. Click OK to terminate the program.");
const QString kOkCancelHintEn = QStringLiteral(
    "The function could not executed correctly. Without the execution of this function the "
    "program can't be continued properly. Click OK to abort the function and proceed with the "
    "program or click cancel to terminate the program.");
const QString kRetryHintEn = QStringLiteral(
    "The function could not executed correct. You can try the execution again, but this could "
    "result in strange effects.  Click Cancel, if you want to terminate the program.");
const QString kIgnoreHintEn = QStringLiteral(
    "The function could not executed correct. You can retry the execution, if you think, that "
    "this error is temporary. Or you choose to ignore the error and continue without the "
    "execution of this function, but notice, that this can result in strange behavior of the "
    "program. Click Cancel, if you want to terminate the program.");

class ErrorDialogTest : public ::testing::Test {
protected:
    FakeClock clock;
    ScopedService<Clock> clockScope{clock};
    ScopedLogFolder logs;
    FakeMessageBox box;
    ScopedService<MessageBoxService> boxScope{box};
    FakeProcessExit exits;
    ScopedService<ProcessExit> exitScope{exits};
};

struct BoxCase {
    int buttons;
    int answer;
    const QString* hint;
    bool ends;
};

class ErrorBoxKinds : public ErrorDialogTest, public ::testing::WithParamInterface<BoxCase> {};

// The bits of Buttons pick the hint; the answer decides between ending with 99 and
// handing the result back.
TEST_P(ErrorBoxKinds, HintAndEndingFollowTheButtonsAndTheAnswer) {
    const BoxCase& c = GetParam();
    box.answers = {c.answer};
    const int result = ErrorDialog(QStringLiteral("Fn"), QStringLiteral("Broken"), 99999, QString(),
                                   QString(), false, c.buttons);
    EXPECT_EQ(result, c.answer);
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown[0].style, c.buttons);
    EXPECT_THAT(box.shown[0].text.toStdString(),
                HasSubstr("\r\r" + c.hint->toStdString() + "\r\r"));
    EXPECT_EQ(exits.codes, c.ends ? QList<int>{99} : QList<int>{});
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ErrorBoxKinds,
    ::testing::Values(BoxCase{0, 1, &kOkHintEn, true},         // OK box, OK ends
                      BoxCase{48, 1, &kOkHintEn, true},        // what the library's callers pass
                      BoxCase{64, 1, &kOkHintEn, true},        //
                      BoxCase{4, 6, &kOkHintEn, false},        // bit 2 alone: OK text
                      BoxCase{1, 1, &kOkCancelHintEn, false},  // OK goes back
                      BoxCase{49, 1, &kOkCancelHintEn, false},
                      BoxCase{1, 2, &kOkCancelHintEn, true},  // Cancel ends
                      BoxCase{5, 4, &kRetryHintEn, false},    // Retry goes back
                      BoxCase{53, 2, &kRetryHintEn, true},    // Cancel ends
                      BoxCase{2, 3, &kIgnoreHintEn, true},    // Abort ends
                      BoxCase{2, 4, &kIgnoreHintEn, false},   // Retry
                      BoxCase{18, 5, &kIgnoreHintEn, false},  // Ignore
                      BoxCase{3, 6, &kIgnoreHintEn, false},   // bit 1: Ignore text
                      BoxCase{7, 2, &kIgnoreHintEn, true}));

TEST_F(ErrorDialogTest, KindsFollowTheLowBits) {
    EXPECT_EQ(ErrorDialogKindOf(0), ErrorDialogKind::Ok);
    EXPECT_EQ(ErrorDialogKindOf(48), ErrorDialogKind::Ok);
    EXPECT_EQ(ErrorDialogKindOf(1), ErrorDialogKind::OkCancel);
    EXPECT_EQ(ErrorDialogKindOf(5), ErrorDialogKind::RetryCancel);
    EXPECT_EQ(ErrorDialogKindOf(2), ErrorDialogKind::AbortRetryIgnore);
    EXPECT_EQ(ErrorDialogKindOf(6), ErrorDialogKind::AbortRetryIgnore);
}

TEST_F(ErrorDialogTest, SilentLogsAndReturnsWithoutBoxOrEnding) {
    for (const int buttons : {0, 48, 1, 2}) {
        EXPECT_EQ(ErrorDialog(QStringLiteral("Fn"), QStringLiteral("quiet"), 5, QString(),
                              QString(), true, buttons),
                  0);
    }
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_TRUE(exits.codes.isEmpty());
    EXPECT_EQ(logs.lines().size(), 4);
    EXPECT_EQ(logs.lines().first(),
              "05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@Fn@LZF: '' (0) - DebugInfo: "
              "5, quiet [].");
}

TEST_F(ErrorDialogTest, EnglishMessageIsBuiltLineByLine) {
    box.answers = {1};
    ErrorDialog(QStringLiteral("SearchObjectForm"), QStringLiteral("Form missing"), 99999,
                QStringLiteral("frmMain"), QStringLiteral("Call support."), false, 1);
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown[0].title, "Runtime error in Vorelle V 6.71 Build 285");
    EXPECT_EQ(box.shown[0].text,
              "An function-error occured!\r\r"
              "Function:  \tSearchObjectForm\r"
              "Error-No.: \t99999\r"
              "Error:        \tForm missing\r"
              "Debug-Info: \tfrmMain\r"
              "\r" +
                  kOkCancelHintEn +
                  "\r\r"
                  "Call support.\r\r"
                  "If you want to help us to make this program better, send a screenshot of "
                  "this window (Alt+PrintScreen) to support@haldrake.de");
    EXPECT_EQ(logs.lines().first(),
              "05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@SearchObjectForm@LZF: '' "
              "(0) - DebugInfo: 99999, Form missing [frmMain].");
}

TEST_F(ErrorDialogTest, GermanMessageWithoutDebugInfoHasNoScreenshotRequest) {
    ScopedLanguage german(QStringLiteral("de"));
    box.answers = {1};
    ErrorDialog(QStringLiteral("WindowPosSave"),
                QStringLiteral("Übergebenes Objekt ist keine Form-Objekt!"), 99999, QString(),
                QString(), false, 48);
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown[0].title, "Laufzeitfehler in Vorelle V 6.71 Build 285");
    EXPECT_EQ(box.shown[0].text,
              QStringLiteral(
                  "Es ist Funktionsfehler aufgetreten!\r\r"
                  "Funktion:   \tWindowPosSave\r"
                  "Fehler-Nr.: \t99999\r"
                  "Fehler:     \tÜbergebenes Objekt ist keine Form-Objekt!\r"
                  "\r"
                  "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Ohne die Ausführung "
                  "dieser Funktion kann das Programm nicht fortgeführt werden. Klicken Sie auf "
                  "OK, um das Programm zu beenden.\r\r"));
    EXPECT_EQ(exits.codes, QList<int>{99});
}

TEST_F(ErrorDialogTest, GermanHintsOfTheOtherKindsAndTheScreenshotRequest) {
    ScopedLanguage german(QStringLiteral("de"));
    const QString retry = QStringLiteral(
        "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Sie können die Ausführung "
        "wiederholen, falls sie meinen, dass es sich um temporäres Problem handelt.");
    EXPECT_THAT(ErrorDialogMessage("F", "E", 1, "d", "", 1).toStdString(),
                HasSubstr("Klicken Sie auf OK, um die Funktion abzubrechen und das Programm "
                          "fortzuführen oder klicken Sie auf Abbrechen, um das Programm zu "
                          "beenden.\r\r"));
    EXPECT_THAT(ErrorDialogMessage("F", "E", 1, "d", "", 5).toStdString(),
                HasSubstr((retry + " Mit Abbrechen beenden Sie das Programm.\r\r").toStdString()));
    EXPECT_THAT(
        ErrorDialogMessage("F", "E", 1, "d", "", 2).toStdString(),
        HasSubstr((retry + " Oder Sie können den Fehler ignorieren und ohne die Ausführung "
                           "dieser Funktion mit dem Programm fortfahren, es könnte sich dabei aber "
                           "ungewöhnlich verhalten. Mit Abbrechen beenden Sie das Programm.\r\r")
                      .toStdString()));
    EXPECT_TRUE(ErrorDialogMessage("F", "E", 1, "d", "", 0)
                    .endsWith(QStringLiteral(
                        "Wenn Sie uns helfen möchten, das Programm zu verbessern, schicken Sie "
                        "einen Screenshot dieses Fensters (Alt+Druck) an support@haldrake.de")));
}

struct SplitCase {
    const char* language;
    const char* shownText;
    const char* shownExtra;
};

class ErrorTextLanguages : public ErrorDialogTest,
                           public ::testing::WithParamInterface<SplitCase> {};

// "German|English" shows the part of the language, comes back so in the caller's
// variable, and the log keeps both.
TEST_P(ErrorTextLanguages, ShowOnePartAndLogBoth) {
    ScopedLanguage language(QString::fromLatin1(GetParam().language));
    QString text = QStringLiteral("Text|Text-en");
    QString extra = QStringLiteral("Hinweis|Hint");
    box.answers = {1};
    ErrorDialog(QStringLiteral("Fn"), text, 7, QString(), extra, false, 1);
    EXPECT_EQ(text, GetParam().shownText);
    EXPECT_EQ(extra, GetParam().shownExtra);
    ASSERT_EQ(box.shown.size(), 1);
    const std::string shown = box.shown[0].text.toStdString();
    EXPECT_THAT(shown, HasSubstr(std::string("\t") + GetParam().shownText + "\r"));
    EXPECT_THAT(shown, HasSubstr(std::string("\r\r") + GetParam().shownExtra + "\r\r"));
    EXPECT_THAT(shown, Not(HasSubstr("|")));
    EXPECT_THAT(logs.lines().first().toStdString(), HasSubstr("DebugInfo: 7, Text|Text-en []."));
}

INSTANTIATE_TEST_SUITE_P(Languages, ErrorTextLanguages,
                         ::testing::Values(SplitCase{"de", "Text", "Hinweis"},
                                           SplitCase{"en", "Text-en", "Hint"},
                                           SplitCase{"fr", "Text-en", "Hint"}));

TEST_F(ErrorDialogTest, AnUnwritableLogStillShowsTheBox) {
    ScopedLogFolder::setFolder(QStringLiteral("/proc"));
    box.answers = {4};
    EXPECT_EQ(
        ErrorDialog(QStringLiteral("Fn"), QStringLiteral("E"), 1, QString(), QString(), false, 5),
        4);
    EXPECT_EQ(box.shown.size(), 1);
    EXPECT_TRUE(exits.codes.isEmpty());
}

}  // namespace
}  // namespace vorelle::test
