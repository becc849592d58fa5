#include "TxtFixture.h"

#include <QMetaProperty>

#include "host/frame/ControlRegistry.h"
#include "textentry/TextTypes.h"

namespace vorelle::test {
namespace {

TEST_F(TxtTest, ClassDataAndRegistration) {
    make();
    EXPECT_EQ(txt->TypeName(), QStringLiteral("txt"));
    EXPECT_TRUE(
        txt->aboutText().startsWith(QStringLiteral("ctrlText V 1.21\r\nEingabefeld für Text")));
    std::unique_ptr<ControlBase> made(ControlRegistry::create(QStringLiteral("txt"), nullptr));
    EXPECT_NE(qobject_cast<Txt*>(made.get()), nullptr);
}

TEST_F(TxtTest, AnEmptyBagGivesTheDefaultsAndWritesNothing) {
    make();
    EXPECT_TRUE(txt->Enabled());
    EXPECT_FALSE(txt->Locked());
    EXPECT_TRUE(txt->RegSave());
    EXPECT_TRUE(txt->EntryWizard());
    EXPECT_EQ(txt->TextTyp(), QStringLiteral("Text"));
    EXPECT_EQ(txt->MaxLength(), 255);
    EXPECT_EQ(txt->BackColor(), 0xFFFFFF);
    EXPECT_EQ(txt->ForeColor(), 0);
    EXPECT_TRUE(txt->save().isEmpty());
}

TEST_F(TxtTest, PropertiesRoundTripInTheirOrder) {
    const QList<std::pair<QString, QVariant>> stored{
        {"Enabled", false},
        {"Locked", true},
        {"RegSave", false},
        {"EntryWizard", false},
        {"TextTyp", "Name"},
        {"PasswordChar", "*"},
        {"Text_de", "de"},
        {"Text_en", "en"},
        {"DropDownList_de", "x|y"},
        {"DropDownList_en", "p|q"},
        {"DropDownSorted", true},
        {"DropDownAllowAdding", true},
        {"DropDownAllowDoubles", true},
        {"ToolTipText_de", "tip"},
        {"ToolTipText_en", "tip en"},
        {"ForeColor", 255},
        {"BackColor", 0xC0C0C0},
        {"MaxLength", 40},
        {"OLEDragMode", 1},
        {"OLEDropMode", 2},
        {"ValidChars", "abc"},
        {"ValidCharAnz", "a=1"},
        {"CharReplace", "b=c"},
        {"Alignment", 2},
        {"TypingBehavior", 3},
        {"ResizingMoveHor", 0.5},
    };
    make(stored);
    const PropertyBag bag = txt->save();
    QStringList names;
    for (const PropertyBag::Entry& e : bag.entries()) {
        names.append(e.name);
    }
    QStringList expected;
    for (const auto& [name, value] : stored) {
        expected.append(name);
    }
    EXPECT_EQ(names, expected);
    for (const auto& [name, value] : stored) {
        EXPECT_TRUE(PropertyBag::sameValue(bag.ReadProperty(name, value), value))
            << name.toStdString();
    }
}

TEST_F(TxtTest, AWrongTypeInTheBagChangesNothing) {
    make();
    PropertyBag bad;
    bad.insert(QStringLiteral("ValidChars"), QStringLiteral("0123"));
    bad.insert(QStringLiteral("MaxLength"), QStringLiteral("many"));
    EXPECT_THROW(txt->startFrom(bad), PropertyError);
    EXPECT_EQ(txt->ValidChars(), QString());
    EXPECT_EQ(txt->MaxLength(), 255);
}

TEST_F(TxtTest, SettersReportTheirProperty) {
    make();
    txt->host().clearDirty();
    txt->setValidChars(QStringLiteral("0"));
    txt->setTypingBehavior(1);
    txt->setText(QStringLiteral("x"));
    EXPECT_EQ(txt->host().changedProperties(),
              (QStringList{"ValidChars", "TypingBehavior", "Text_en"}));
}

// --- Hint texts
// ----------------------------------------------------------------------------------------

TEST_F(TxtTest, HintOfAPlainField) {
    make({{QStringLiteral("TypingBehavior"), 3}, {QStringLiteral("MaxLength"), 20}});
    EXPECT_EQ(txt->Status2_de(),
              QStringLiteral("Texteingabefeld (max. 20 Zeichen). Klicken Sie auf den Pfeil rechts "
                             "(oder benutzen Sie das Mausrad) für eine Liste der zuletzt "
                             "eingegebenen Texte. Automatische Großschreibung am Wortanfang."));
    EXPECT_EQ(txt->Status2_en(),
              QStringLiteral("Entryfield text (max. 20 Chars). Click the green arrow on the right "
                             "side (or use the mouse wheel) for a list of last entered texts. "
                             "Automatic capitalization of words. "));
}

TEST_F(TxtTest, HintWithAListMentionsTheGreenArrowInGermanOnly) {
    make({{QStringLiteral("DropDownList_de"), QStringLiteral("a")},
          {QStringLiteral("DropDownList_en"), QStringLiteral("a")}});
    EXPECT_TRUE(txt->Status2_de().contains(QStringLiteral("grünen Pfeil rechts")));
    EXPECT_FALSE(txt->Status2_en().contains(QStringLiteral("green")));
}

TEST_F(TxtTest, HintsOfDisabledLockedPasswordAndChooseOnlyFields) {
    make({{QStringLiteral("Enabled"), false}});
    EXPECT_EQ(txt->Status2_de(), QStringLiteral("Texteingabefeld (max. 255 Zeichen). "));
    txt->setEnabledProperty(true);
    txt->setLocked(true);
    txt->setTypingBehavior(2);
    EXPECT_EQ(txt->Status2_en(),
              QStringLiteral("Entryfield text (max. 255 Chars). Automatic capitalization. "));
    txt->setLocked(false);
    txt->setPasswordChar(QStringLiteral("*"));
    EXPECT_EQ(txt->Status2_en(),
              QStringLiteral("Entryfield text (max. 255 Chars). Click the key on "
                             "the right side to generate a random password. "));
    txt->setPasswordChar(QString());
    txt->setDropDownList(QStringLiteral("a|b"));
    txt->setDropDownMustChooseFrom(true);
    EXPECT_TRUE(txt->Status2_de().contains(QStringLiteral(
        "Es kann nur ein definierter Text durch Klick auf den Pfeil rechts ausgewählt werden. ")));
    EXPECT_TRUE(field()->isReadOnly());
    EXPECT_FALSE(txt->Locked());
}

// --- The kinds of text fields
// --------------------------------------------------------------------------

TEST(TextTypes, TableRowsAsThePageFillsThem) {
    const QList<TextTypeRow>& table = TextTypeTable();
    ASSERT_EQ(table.size(), 13);
    EXPECT_EQ(table.front().choice, QStringLiteral("Freitext"));
    EXPECT_EQ(table.front().textTyp, QStringLiteral("Text"));
    const TextTypeRow* key = TextTypeOfChoice(QStringLiteral("Key-Code"));
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->textTyp, QStringLiteral("nur Großbuchstaben"));
    EXPECT_EQ(key->charReplace, QStringLiteral(" =-"));
    EXPECT_EQ(key->typingBehavior, 2);
    EXPECT_TRUE(TextTypeOfChoice(QStringLiteral("nur Großbuchstaben"))->validChars.endsWith(u'ß'));
    EXPECT_EQ(TextTypeOfChoice(QStringLiteral("URL"))->validCharAnz, QStringLiteral("/>2|:=1|.>0"));
    EXPECT_EQ(TextTypeOfChoice(QStringLiteral("Password"))->passwordChar, QStringLiteral("*"));
    for (const TextTypeRow& row : table) {
        if (row.choice != u"Password") {
            EXPECT_TRUE(row.passwordChar.isEmpty());
        }
    }
    EXPECT_EQ(TextTypeOfChoice(QStringLiteral("Zahl")), nullptr);
    EXPECT_EQ(TextTypeUndefined(QStringLiteral("Zahl")), QStringLiteral("nicht definiert: Zahl"));
}

TEST(TextTypes, TooltipSentences) {
    EXPECT_EQ(TextTypeTooltipDe(QStringLiteral("Name"), 30),
              QStringLiteral("Bitte geben Sie einen Namen mit max. 30 Zeichen ein."));
    EXPECT_EQ(TextTypeTooltipEn(QStringLiteral("URL"), 255),
              QStringLiteral("please enter an URL with max. 255 characters."));
    EXPECT_EQ(TextTypeTooltipEn(QStringLiteral("nur Ziffern"), 5),
              QStringLiteral("please enter  with max. 5 characters."));
    EXPECT_EQ(TextTypeTooltipWarning(QStringLiteral("nur Ziffern")),
              QStringLiteral("TextTyp nur Ziffern noch nicht in ChangeTooltip definiert!"));
    EXPECT_EQ(TextTypeTooltipWarning(QStringLiteral("Text")), QString());
}

}  // namespace
}  // namespace vorelle::test
