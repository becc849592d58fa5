// The frame (fra): its measures, the colours and rounded corners of each dialog style,
// captions and languages, persistence, and the group disable of its contained controls.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>

#include "display/PictureBox_p.h"
#include "display/des.h"
#include "display/fra.h"
#include "errors/ScopedLanguage.h"
#include "formwizard/DialogStyle.h"
#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"
#include "host/frame/OleColor.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

QColor colourOf(const char* text) {
    return OleToQColor(HexColor(QString::fromLatin1(text)));
}

class FraTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    Form form;

    void SetUp() override {
        form.setName(QStringLiteral("frmRahmen"));
        form.resize(500, 300);
        CurrentDialogStyle().clear();
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("en"));
        LanguageLoad();
    }
    void TearDown() override { CurrentDialogStyle().clear(); }

    fra* make(const PropertyBag& bag = {}) {
        auto* frame = new fra(&form);
        frame->setObjectName(QStringLiteral("fra1"));
        frame->startFrom(bag);
        frame->setWidth(6000);
        frame->setHeight(3000);
        frame->host().clearDirty();
        return frame;
    }
    des* inside(fra* frame, const char* name) {
        auto* control = new des(frame);
        control->setObjectName(QString::fromLatin1(name));
        control->startFrom({});
        return control;
    }
    static QImage shown(QWidget* widget) { return widget->grab().toImage(); }
};

TEST_F(FraTest, ANewFrameHasItsSizeAndCaptionsAndKeepsItsMeasuresBelowTheLimits) {
    auto* frame = new fra(&form);
    frame->setObjectName(QStringLiteral("fra1"));
    frame->startNew();
    EXPECT_EQ(frame->Width(), 6000);
    EXPECT_EQ(frame->Height(), 3000);
    EXPECT_EQ(frame->Caption(), QStringLiteral("Überschrift"));  // the design text, until loaded
    EXPECT_EQ(frame->Caption_en(), QStringLiteral("caption_not_set"));
    EXPECT_EQ(frame->Caption_de(), QStringLiteral("Beschriftung_nicht_gesetzt"));
    EXPECT_EQ(frame->CaptionUnten_en(), QString());
    EXPECT_EQ(frame->innerPanel()->geometry(), QRect(5, 18, 390, 170));
    EXPECT_EQ(frame->titleLabel()->geometry(), QRect(8, 3, 384, 15));
    EXPECT_EQ(frame->bottomLabel()->geometry(), QRect(8, 188, 384, 15));
    EXPECT_EQ(frame->titleLabel()->font().family(), QStringLiteral("MS Sans Serif"));
    EXPECT_TRUE(frame->titleLabel()->font().bold());

    frame->resizeNow(QSize(20, 40));  // 300 and 600 twips: the parts keep their measures
    EXPECT_EQ(frame->innerPanel()->size(), QSize(390, 170));
    EXPECT_EQ(frame->bottomLabel()->y(), 188);
    frame->resizeNow(QSize(21, 41));
    EXPECT_EQ(frame->innerPanel()->size(), QSize(11, 11));
    EXPECT_EQ(frame->titleLabel()->width(), 5);
    EXPECT_EQ(frame->bottomLabel()->y(), 29);
    frame->resizeNow(QSize(3, 9));  // below 150 twips it snaps back
    EXPECT_EQ(frame->Width(), 150);
    EXPECT_EQ(frame->Height(), 150);
}

TEST_F(FraTest, EachStyleColoursFramePanelAndCaptionsAndRoundsTheCorners) {
    struct Row {
        const char* style;
        const char* frame;
        const char* panelMiddle;  // nullptr: a gradient
    };
    for (const Row& row :
         {Row{"Winter", "4773bd", nullptr}, Row{"Business", "808080", "e0e0e0"},
          Row{"winter", "0000C0", "FFFFFF"}, Row{"Cool and hot", "0000c0", nullptr}}) {
        SCOPED_TRACE(row.style);
        CurrentDialogStyle() = QString::fromLatin1(row.style);
        fra* frame = make();
        const QColor frameColour = colourOf(row.frame);
        EXPECT_EQ(frame->frameColor(), frameColour);
        EXPECT_EQ(frame->titleLabel()->palette().color(QPalette::Window), frameColour);
        EXPECT_EQ(frame->bottomLabel()->palette().color(QPalette::Window), frameColour);
        const QImage image = shown(frame);
        const int w = image.width() - 1;
        const int h = image.height() - 1;
        // The corners: runs of 5, 3, 2, 1 and 1 white pixels, then the frame colour.
        for (const QPoint& white : {QPoint(4, 0), QPoint(2, 1), QPoint(0, 4), QPoint(w - 4, 0),
                                    QPoint(w, 4), QPoint(0, h - 4), QPoint(w - 1, h - 2)}) {
            EXPECT_EQ(image.pixelColor(white), QColor(Qt::white)) << white.x() << "," << white.y();
        }
        for (const QPoint& framed : {QPoint(5, 0), QPoint(3, 1), QPoint(1, 3), QPoint(0, 5),
                                     QPoint(w - 5, 0), QPoint(w, h - 5), QPoint(5, h)}) {
            EXPECT_EQ(image.pixelColor(framed), frameColour) << framed.x() << "," << framed.y();
        }
        const QImage panel = shown(frame->innerPanel());
        EXPECT_EQ(panel.pixelColor(0, 0), frameColour);
        EXPECT_EQ(panel.pixelColor(panel.width() - 1, panel.height() - 1), frameColour);
        const QPoint middle(panel.width() / 2, panel.height() / 2);
        if (row.panelMiddle) {
            EXPECT_EQ(panel.pixelColor(middle), colourOf(row.panelMiddle));
        } else {  // a diagonal gradient: the corners differ
            EXPECT_NE(panel.pixelColor(1, 1),
                      panel.pixelColor(panel.width() - 2, panel.height() - 2));
        }
        delete frame;
    }
    // A frame painted under one style takes the next at its next paint.
    CurrentDialogStyle() = QStringLiteral("Winter");
    fra* frame = make();
    CurrentDialogStyle() = QStringLiteral("Business");
    EXPECT_EQ(shown(frame).pixelColor(5, 0), colourOf("808080"));
    EXPECT_EQ(shown(frame->innerPanel()).pixelColor(20, 20), colourOf("e0e0e0"));
}

TEST_F(FraTest, WithoutAStyleTheFormsStoredOneIsReadOnceAndOffAFormBackColorRules) {
    RegSetApp(QStringLiteral("frmRahmen"), QStringLiteral("DialogStyle"),
              QStringLiteral("Business"));
    fra* frame = make();
    EXPECT_EQ(CurrentDialogStyle(), QStringLiteral("Business"));
    EXPECT_EQ(frame->frameColor(), colourOf("808080"));
    frame->setBackColor(OleRgb(0, 0x80, 0));  // the style wins at once
    EXPECT_EQ(frame->frameColor(), colourOf("808080"));
    EXPECT_EQ(frame->host().changedProperties(), QStringList{"BackColor"});

    CurrentDialogStyle().clear();
    fra loose;  // on no form: no style to read
    loose.startFrom({});
    loose.setBackColor(OleRgb(0, 0x80, 0));
    EXPECT_TRUE(CurrentDialogStyle().isEmpty());
    EXPECT_EQ(loose.frameColor(), QColor(0, 0x80, 0));
    EXPECT_EQ(loose.titleLabel()->palette().color(QPalette::Window), QColor(0, 0x80, 0));
    EXPECT_EQ(shown(&loose).pixelColor(0, 0), QColor(0, 0x80, 0));  // not rounded
}

TEST_F(FraTest, CaptionsFollowTheLanguageAndRefreshLeavesTheBottomCaption) {
    fra* frame = make();
    frame->setCaption_de(QStringLiteral("Adresse"));
    frame->setCaption_en(QStringLiteral("Address"));
    frame->setCaptionUnten_de(QStringLiteral("Pflichtfelder"));
    frame->setCaptionUnten_en(QStringLiteral("Required fields"));
    EXPECT_EQ(frame->Caption(), QStringLiteral("Address"));
    EXPECT_EQ(frame->CaptionUnten(), QStringLiteral("Required fields"));
    test::ScopedLanguage german(QStringLiteral("de"));
    frame->Refresh();
    EXPECT_EQ(frame->Caption(), QStringLiteral("Adresse"));
    EXPECT_EQ(frame->CaptionUnten(), QStringLiteral("Required fields"));
    frame->host().clearDirty();
    frame->setCaptionUnten(QStringLiteral("Pflicht"));
    EXPECT_EQ(frame->CaptionUnten_de(), QStringLiteral("Pflicht"));
    EXPECT_EQ(frame->host().changedProperties(), QStringList{"CaptionUnten_de"});
}

TEST_F(FraTest, PropertiesSurviveSaveAndLoadAndEnabledTouchesOnlyTheCaptions) {
    fra* frame = make();
    des* child = inside(frame, "des1");
    frame->setEnabledProperty(false);
    EXPECT_FALSE(frame->Enabled());
    EXPECT_FALSE(frame->titleLabel()->isEnabled());
    EXPECT_TRUE(child->isEnabled());
    EXPECT_FALSE(frame->host().isDirty());

    frame->setForeColor(OleRgb(0xFF, 0xFF, 0));
    frame->setCaption_de(QStringLiteral("Titel"));
    frame->setCaptionUnten_en(QStringLiteral("Bottom"));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(11);
    frame->setFontProperty(font);
    auto* copy = new fra(&form);
    copy->startFrom(frame->save());
    for (const char* name : {"Enabled", "BackColor", "ForeColor", "Caption_de", "Caption_en",
                             "CaptionUnten_de", "CaptionUnten_en"}) {
        EXPECT_EQ(copy->property(name), frame->property(name)) << name;
    }
    EXPECT_EQ(copy->bottomLabel()->font().pointSize(), 11);  // copied from the title at load
    EXPECT_EQ(copy->titleLabel()->palette().color(QPalette::WindowText), QColor(0xFF, 0xFF, 0));
}

TEST_F(FraTest, ContainedControlsLoadBackInsideAndAssistiveToolsSeeAGroup) {
    fra* frame = make();
    frame->setCaption_en(QStringLiteral("Address"));
    frame->setCaptionUnten_en(QStringLiteral("Where the invoice goes"));
    inside(frame, "desStrasse");
    const QString path = QDir::temp().filePath(QStringLiteral("vorelle-fra-roundtrip.ui"));
    FormLoader::save(form, path);
    const std::unique_ptr<Form> loaded = FormLoader::load(path);
    QFile::remove(path);
    QObject* frameAgain = loaded->Controls(QStringLiteral("fra1"));
    ASSERT_NE(frameAgain, nullptr);
    EXPECT_EQ(loaded->Controls(QStringLiteral("desStrasse"))->parent(), frameAgain);

    // A designer's file keeps its frames' controls inside when saved again.
    const std::unique_ptr<Form> designed = FormLoader::load(
        QStringLiteral(VORELLE_SOURCE_DIR "/apps/demo/forms/frmGruppe.ui"), {.designMode = true});
    FormLoader::save(*designed, path);
    const std::unique_ptr<Form> again = FormLoader::load(path, {.designMode = true});
    QFile::remove(path);
    EXPECT_EQ(again->Controls(QStringLiteral("desWert3"))->parent(),
              again->Controls(QStringLiteral("fraAnschrift")));
    EXPECT_EQ(again->Controls().size(), designed->Controls().size());

    QAccessibleInterface* a = QAccessible::queryAccessibleInterface(frame);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::Grouping);
    EXPECT_EQ(a->text(QAccessible::Name), "Address");
    EXPECT_EQ(a->text(QAccessible::Description), "Where the invoice goes");
    frame->setEnabledProperty(false);
    EXPECT_TRUE(a->state().disabled);
}

TEST_F(FraTest, DisableControlsSwitchesTheGroupOffOnceAndReEnableRestoresEachControl) {
    fra* frame = make();
    des* on = inside(frame, "desAn");
    des* off = inside(frame, "desAus");
    des* spared = inside(frame, "desFrei");
    new QLabel(QStringLiteral("plain"), frame);  // no Name, no Enabled: left alone
    off->setEnabledProperty(false);

    frame->DisableControls(QStringLiteral("desFrei"));
    EXPECT_EQ(frame->disabledControls(), QStringLiteral("desAn=1|desAus=0"));
    EXPECT_FALSE(on->Enabled());
    EXPECT_TRUE(spared->Enabled());
    frame->DisableControls();  // in force already: nothing changes
    EXPECT_TRUE(spared->Enabled());
    EXPECT_EQ(frame->disabledControls(), QStringLiteral("desAn=1|desAus=0"));

    delete on;  // a control gone from the frame is skipped
    frame->ReEnableControls();
    EXPECT_FALSE(off->Enabled());
    EXPECT_TRUE(frame->disabledControls().isEmpty());

    // All spared: nothing is in force, so the next call does the work.
    frame->DisableControls(QStringLiteral("desAus|desFrei"));
    EXPECT_TRUE(frame->disabledControls().isEmpty());
    frame->DisableControls();
    EXPECT_FALSE(spared->Enabled());
    frame->ReEnableControls();
    EXPECT_TRUE(spared->Enabled());
}

}  // namespace
}  // namespace vorelle
