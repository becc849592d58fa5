#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QTest>

#include "choice/chb.h"
#include "choice/frmSprachwahl.h"
#include "choice/rbl.h"
#include "display/Cmd.h"
#include "errors/ScopedLanguage.h"
#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

// An open form whose check box shows the language, and the choice form over it.
class SprachwahlTest : public ::testing::Test {
protected:
    void SetUp() override {
        other.setName("frmAndere");
        box = new chb(&other);
        box->setObjectName("chbZeigt");
        box->startNew();
        other.runLoad();
        choice.runLoad();
        choice.show();
    }
    QString stored() const {
        return RegGetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("-"));
    }
    static qint32 widthFor(chb* b, const QString& caption) {
        return PixelsToTwips(QFontMetrics(b->font()).horizontalAdvance(caption)) + 360;
    }

    test::ScopedLanguage english{"en"};
    Form other;
    chb* box = nullptr;
    frmSprachwahl choice;
};

TEST_F(SprachwahlTest, ClickOnALanguageWritesItRefreshesTheFormsAndCloses) {
    EXPECT_EQ(choice.Caption(), "Please choose language");
    EXPECT_EQ(choice.rblSprache()->Value(), 2) << "the current language is marked";
    EXPECT_EQ(choice.cmdAbort()->Caption(), "Cancel");
    EXPECT_EQ(choice.cmdAbort()->AccessKey_de(), "ALT+A");
    EXPECT_EQ(choice.cmdAbort()->AccessKey_en(), "ALT+C");
    EXPECT_EQ(choice.Result(), 0);

    rbl* list = choice.rblSprache();
    const qint32 belowText = PixelsToTwips(QFontMetrics(list->font()).height()) + 10;
    list->MouseClick(1, 30, belowText);  // below the first text: nothing is chosen
    EXPECT_EQ(choice.Result(), 0);
    EXPECT_TRUE(choice.isVisible());
    const QRect german = list->optionRect(1);
    list->MouseClick(1, PixelsToTwips(german.center().x()), PixelsToTwips(german.center().y()));
    EXPECT_EQ(choice.Result(), 1);
    EXPECT_EQ(stored(), "de");
    EXPECT_EQ(CurrentLanguage(), "de");
    EXPECT_EQ(box->Width(), widthFor(box, "Beschriftung_nicht_gesetzt"))
        << "the other form's controls show the new language";
    EXPECT_EQ(choice.cmdAbort()->Caption(), "Abbrechen");
    EXPECT_FALSE(choice.isVisible());
}

TEST_F(SprachwahlTest, KeysChooseTheMarkedLanguageAndCancelChangesNothing) {
    rbl* list = choice.rblSprache();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(choice.Result(), 1);
    EXPECT_EQ(stored(), "de");

    frmSprachwahl again;
    again.runLoad();
    again.show();
    EXPECT_EQ(again.rblSprache()->Value(), 1);
    again.cmdAbort()->click();
    EXPECT_EQ(again.Result(), frmSprachwahl::kAborted);
    EXPECT_EQ(stored(), "de");
    EXPECT_FALSE(again.isVisible());
}

}  // namespace
}  // namespace vorelle
