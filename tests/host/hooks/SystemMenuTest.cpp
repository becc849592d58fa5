#include <gtest/gtest.h>

#include <memory>

#include <QAction>
#include <QApplication>
#include <QTest>

#include "errors/ScopedLanguage.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/ControlBase.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/SystemMenu.h"
#include "host/platform/Environment.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

QStringList namesOf(const QList<QAction*>& actions) {
    QStringList names;
    for (const QAction* a : actions) {
        names.append(a->objectName());
    }
    return names;
}

QStringList textsOf(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* a : actions) {
        texts.append(a->text());
    }
    return texts;
}

class SystemMenu : public ::testing::Test {
protected:
    void SetUp() override {
        form = std::make_unique<Form>();
        form->setName(QStringLiteral("frmMenu"));
        form->resize(200, 150);
    }
    ScopedLogFolder logs;
    ScopedMemoryStore store;
    std::unique_ptr<Form> form;
};

struct MenuCase {
    const char* language;
    QStringList texts;
};

class SystemMenuTexts : public SystemMenu, public ::testing::WithParamInterface<MenuCase> {};

// With one screen there is no "nextmonitor"; the texts follow the language.
TEST_P(SystemMenuTexts, RebuildAddsTheEntriesOnce) {
    ScopedLanguage language(QString::fromLatin1(GetParam().language));
    ASSERT_FALSE(HasMultipleMonitors());
    SystemMenuRebuild(form.get());
    SystemMenuRebuild(form.get());
    const QList<QAction*> entries = SystemMenuEntries(form.get());
    EXPECT_EQ(namesOf(entries), QStringList({"sep1", "posreset"}));
    EXPECT_EQ(textsOf(entries), GetParam().texts);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries[0]->isSeparator());
    EXPECT_TRUE(entries[1]->shortcut().isEmpty());  // the form manager polls the key
    EXPECT_EQ(entries[1]->property("vorelleWindowCommand").toInt(), 13);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, SystemMenuTexts,
    ::testing::Values(
        MenuCase{"en", {"", "Reset window positions \t(Ctrl+F12)"}},
        MenuCase{"de", {"", QStringLiteral("Fensterpositionen zurücksetzen \t(Strg+F12)")}}));

TEST_F(SystemMenu, ClearTakesTheEntriesOffAndLeavesOtherActions) {
    auto* own = new QAction(QStringLiteral("Own"), form.get());
    form->addAction(own);
    SystemMenuRebuild(form.get());
    SystemMenuClear(form.get());
    EXPECT_TRUE(SystemMenuEntries(form.get()).isEmpty());
    EXPECT_EQ(form->actions(), QList<QAction*>{own});
}

TEST_F(SystemMenu, TheEntryDeliversTheResetToTheHookedFormAndTheKeyIsNoShortcut) {
    const QString program = GetModuleAppName(QString());
    RegSet(program, QStringLiteral("frmMenu_init"), QStringLiteral("Left"), QStringLiteral("600"));
    RegSet(program, QStringLiteral("frmMenu_init"), QStringLiteral("Top"), QStringLiteral("300"));
    Hook(form.get(), &WMPROC_Form, QStringLiteral("Form"));
    form->show();
    form->activateWindow();
    QApplication::setActiveWindow(form.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    SystemMenuRebuild(form.get());

    form->move(250, 250);
    SystemMenuEntries(form.get()).last()->trigger();
    EXPECT_EQ(form->frameGeometry().topLeft(), QPoint(40, 20));

    // The key is no shortcut of the entry: without a form manager it does nothing.
    form->move(250, 250);
    QTest::keyClick(form.get(), Qt::Key_F12, Qt::ControlModifier);
    EXPECT_EQ(form->frameGeometry().topLeft(), QPoint(250, 250));
    form.reset();
}

}  // namespace
}  // namespace vorelle::test
