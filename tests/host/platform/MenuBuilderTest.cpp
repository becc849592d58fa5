#include <gtest/gtest.h>

#include <QApplication>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/StatusText.h"
#include "support/Doubles.h"
#include "support/FakePopupMenu.h"

namespace vorelle::test {
namespace {

class MenuBuilderTest : public ::testing::Test {
protected:
    ScopedMemoryStore store;
    FakePopupMenu popup;
    ScopedService<PopupMenu> scope{popup};

    void language(const char* lang) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QString::fromLatin1(lang));
        LanguageLoad();
    }
    void build() {
        MenuStart("formwizard", "Dialog-Titel", "");
        MenuAdd("tooltips", "ToolTipps anzeigen", "Show tooltips", MenuChecked);
        MenuSub("dStyle", "Dialog-Style", "Dialog style");
        MenuAdd("Winter", "Winter (Schnee und Eis)", "", MenuChecked);
        MenuSub("deep", "Tief", "Deep");
        MenuAdd("x", "X", "X");
        MenuEndSub();
        MenuEndSub();
        MenuAdd("sep1", "-", "-", MenuSeparator);
        MenuAdd("posreset", "Zurücksetzen", "Reset", MenuGrayed);
    }
};

TEST_F(MenuBuilderTest, SubmenuItemsCarryTheirPath) {
    language("en");
    build();
    popup.choose = QStringLiteral("dStyle\\deep\\x");
    EXPECT_EQ(MenuShow(), QStringLiteral("dStyle\\deep\\x"));
    popup.choose = QStringLiteral("tooltips");
    EXPECT_EQ(MenuShow(), QStringLiteral("tooltips"));
    const QList<MenuRow>& rows = popup.shown.last().rows;
    ASSERT_EQ(rows.size(), 7);
    EXPECT_EQ(rows.at(2).depth, 1);
    EXPECT_EQ(rows.at(4).depth, 2);
    EXPECT_TRUE(rows.at(1).submenu);
}

TEST_F(MenuBuilderTest, NoChoiceGreyedItemsAndSubmenuHeadsGiveNothing) {
    language("en");
    build();
    popup.choose = QString();
    EXPECT_EQ(MenuShow(), QString());
    popup.choose = QStringLiteral("posreset");
    EXPECT_EQ(MenuShow(), QString());
    popup.choose = QStringLiteral("dStyle");
    EXPECT_EQ(MenuShow(), QString());
}

struct LanguageCase {
    const char* language;
    const char* title;
    const char* winter;
    const char* tooltips;
};

class MenuLanguage : public MenuBuilderTest, public ::testing::WithParamInterface<LanguageCase> {};

TEST_P(MenuLanguage, TitlesAndEntriesFallBackToGerman) {
    language(GetParam().language);
    build();
    MenuShow();
    ASSERT_EQ(popup.shown.size(), 1);
    EXPECT_EQ(popup.shown.at(0).title, QString::fromUtf8(GetParam().title));
    EXPECT_EQ(popup.shown.at(0).rows.at(2).text, QString::fromUtf8(GetParam().winter));
    EXPECT_EQ(popup.shown.at(0).rows.at(0).text, QString::fromUtf8(GetParam().tooltips));
}

INSTANTIATE_TEST_SUITE_P(
    MenuBuilder, MenuLanguage,
    ::testing::Values(
        LanguageCase{"de", "Dialog-Titel", "Winter (Schnee und Eis)", "ToolTipps anzeigen"},
        LanguageCase{"en", "Dialog-Titel", "Winter (Schnee und Eis)", "Show tooltips"}));

TEST_F(MenuBuilderTest, TheTableHoldsAThousandRows) {
    MenuStart("big", "Groß", "Big");
    for (int i = 0; i < 1005; ++i) {
        MenuAdd(QString::number(i), "x", "x");
    }
    EXPECT_EQ(MenuRowCount(), MenuMaxRows);
    popup.choose = QStringLiteral("999");
    EXPECT_EQ(MenuShow(), QStringLiteral("999"));
    EXPECT_FALSE(MenuIsOpen());
    EXPECT_TRUE(popup.openWhileShown);
}

class StatusDouble : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    QStringList texts;
    Q_INVOKABLE void Status1(const QString& de, const QString& en) { texts.append(de + u'/' + en); }
};

TEST(FormStatusText, GoesToTheManagerOfTheActiveFormWithEnglishFallback) {
    Form form;
    auto* wizard = new StatusDouble(&form);
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    form.show();
    QApplication::setActiveWindow(&form);
    FormStatusText(QStringLiteral("Hallo"), QStringLiteral("Hello"));
    FormStatusText(QStringLiteral("Nur deutsch"), QString());
    EXPECT_EQ(wizard->texts, (QStringList{"Hallo/Hello", "Nur deutsch/Nur deutsch"}));
}

TEST(FormStatusText, AFormWithoutManagerGetsNothing) {
    Form form;
    form.show();
    QApplication::setActiveWindow(&form);
    FormStatusText(QStringLiteral("Hallo"), QStringLiteral("Hello"));  // no crash, no effect
    SUCCEED();
}

}  // namespace
}  // namespace vorelle::test

#include "MenuBuilderTest.moc"
