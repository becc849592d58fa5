#include <gtest/gtest.h>

#include <QCoreApplication>

#include "PlaceDoubles.h"
#include "formwizard/AutoResize.h"
#include "host/form/FormLoader.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

using test::Box;
using test::setPlaceValue;

struct Factors {
    double moveHor, moveVert, resizeHor, resizeVert;
};

Box* factored(Form* form, const QString& name, const QRect& pixels, Factors f) {
    Box* box = test::addBox(form, name, pixels);
    box->setResizingMoveHor(f.moveHor);
    box->setResizingMoveVert(f.moveVert);
    box->setResizingResizeHor(f.resizeHor);
    box->setResizingResizeVert(f.resizeVert);
    return box;
}

QString place(const Box* box) {
    return QStringLiteral("%1|%2|%3|%4")
        .arg(box->Left())
        .arg(box->Top())
        .arg(box->Width())
        .arg(box->Height());
}

class AutoResizeTest : public ::testing::Test {
protected:
    void build(bool posLoadSave = true) {
        form = test::managedForm(QStringLiteral("frmGroesse"), [&](FormWizard* w) {
            w->setDoResizing(true);
            w->setDoLoadSaveWithControls(true);
            w->setDoPosLoadSave(posLoadSave);
            w->setMinFormWidth(0);
            w->setMinFormHeight(0);
            wizard = w;
        });
        both = factored(form.get(), QStringLiteral("cmdRechts"), {10, 10, 100, 20}, {1, 0, 1, 0});
        half = factored(form.get(), QStringLiteral("cmdUnten"), {10, 50, 100, 20}, {0, 0.5, 0, 0});
        none = factored(form.get(), QStringLiteral("txtFest"), {10, 90, 100, 20}, {0, 0, 0, 0});
        tall = factored(form.get(), QStringLiteral("lstLang"), {120, 10, 100, 60}, {0, 0, 0, 1});
    }
    void grow(int twipsW, int twipsH) {
        form->setWidth(form->Width() + twipsW);
        form->setHeight(form->Height() + twipsH);
        QCoreApplication::processEvents();
    }

    test::ScopedMemoryStore store;
    test::FakeMessageBox boxes;
    ScopedService<MessageBoxService> boxScope{boxes};
    std::unique_ptr<Form> form;
    FormWizard* wizard = nullptr;
    Box *both = nullptr, *half = nullptr, *none = nullptr, *tall = nullptr;
};

TEST_F(AutoResizeTest, EachFactorTakesItsShareOfTheGrowthFromTheDesignSizes) {
    build();
    form->show();
    none->move(12, 95);  // a control without factors stays where it is put
    grow(1500, 900);
    EXPECT_EQ(place(both), "1650|150|3000|300") << "moved and widened by the whole growth";
    EXPECT_EQ(place(half), "150|1200|1500|300") << "half the growth down";
    EXPECT_EQ(place(none), "180|1425|1500|300");
    EXPECT_EQ(place(tall), "1800|150|1500|1800");

    // Measured against the design sizes each time: back to them gives the design places.
    grow(-1500, -900);
    EXPECT_EQ(place(both), "150|150|1500|300");
    EXPECT_EQ(place(half), "150|750|1500|300");
    EXPECT_EQ(place(tall), "1800|150|1500|900");

    // Smaller than designed: the results go below the design places as they come.
    grow(-600, -300);
    EXPECT_EQ(place(both), "-450|150|900|300");
    EXPECT_EQ(place(tall), "1800|150|1500|600");

    // A maximised form is laid out like any other.
    grow(600, 300);
    form->showMaximized();
    QCoreApplication::processEvents();
    ASSERT_EQ(form->WindowState(), 2);
    const int grown =
        form->Width() - test::placeValue("frmGroesse_init", QStringLiteral("Width")).toInt();
    EXPECT_GT(grown, 0);
    EXPECT_EQ(both->Left(), 150 + grown);
}

TEST_F(AutoResizeTest, TheNextRunStartsFromTheSameDesignPlaces) {
    build();
    form->show();
    form->close();
    // The form comes back at the size it was closed with, which is its design size: no
    // Resize after the show, so the controls must stand where the designer put them.
    build();
    form->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(place(both), "150|150|1500|300");
    EXPECT_EQ(place(tall), "1800|150|1500|900");
    grow(750, 0);
    EXPECT_EQ(place(both), "900|150|2250|300");
}

TEST_F(AutoResizeTest, AFormBelowItsMinimumIsRaisedFirstAndZeroNeverRaises) {
    build();
    form->show();
    const int designW = form->Width();
    const int designH = form->Height();
    form->setWidth(designW - 1500);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->Width(), designW - 1500) << "MinFormWidth 0";

    wizard->setMinFormWidth(designW + 750);
    wizard->setMinFormHeight(designH + 450);
    form->setWidth(designW - 3000);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->Width(), designW + 750);
    EXPECT_EQ(form->Height(), designH + 450);
    EXPECT_EQ(place(both), "900|150|2250|300");
    EXPECT_EQ(half->Top(), 750 + 225);
}

TEST_F(AutoResizeTest, AMinimisedFormAndAFormWithoutBaselineAreLeftAlone) {
    build();
    // Before the first Load there are no baseline keys, and before the first show no outer
    // size: nothing moves.
    setPlaceValue(QStringLiteral("frmGroesse_init\\cmdRechts"), QStringLiteral("Left"),
                  QStringLiteral("600"));
    form->setWidth(form->Width() + 3000);
    EXPECT_FALSE(AutoResize(form.get(), 0, 0));
    EXPECT_EQ(place(both), "150|150|1500|300");

    form->show();
    both->move(0, 0);
    form->showMinimized();
    QCoreApplication::processEvents();
    ASSERT_EQ(form->WindowState(), 1);
    EXPECT_FALSE(AutoResize(form.get(), 99999, 99999));
    EXPECT_EQ(place(both), "0|0|1500|300");
    EXPECT_FALSE(AutoResize(nullptr, 0, 0));
}

TEST_F(AutoResizeTest, WithoutPosLoadSaveTheFormsBaselineIs12000By9000) {
    build(false);
    form->show();
    grow(1500, 900);
    EXPECT_EQ(place(both), "150|150|1500|300") << "no baseline of the control: it stays";
    EXPECT_EQ(test::placeValue("frmGroesse_init", QStringLiteral("Width")), "<none>");

    // A control baseline written from elsewhere is measured against 12000 by 9000; the next
    // control, whose values are missing, takes over the numbers of the one before.
    setPlaceValue(QStringLiteral("frmGroesse_init\\cmdRechts"), QStringLiteral("Left"),
                  QStringLiteral("300"));
    setPlaceValue(QStringLiteral("frmGroesse_init\\cmdRechts"), QStringLiteral("Top"),
                  QStringLiteral("600"));
    setPlaceValue(QStringLiteral("frmGroesse_init\\cmdRechts"), QStringLiteral("Width"),
                  QStringLiteral("keine Zahl"));
    form->setWidth(12000 + 1500);
    form->setHeight(9000 - 300);
    QCoreApplication::processEvents();
    EXPECT_EQ(place(both), "1800|150|1500|300");
    EXPECT_EQ(half->Top(), 600 - 150);
}

TEST_F(AutoResizeTest, TheDemoFormFollowsItsFactorsAndComesBackAtItsSize) {
    const QString path = QStringLiteral(VORELLE_SOURCE_DIR "/apps/demo/forms/frmGroesse.ui");
    auto loaded = FormLoader::load(path);
    loaded->show();
    auto at = [](const Form& f, const char* name) {
        const auto* c = qobject_cast<const ControlBase*>(f.Controls(QString::fromLatin1(name)));
        return c ? QStringLiteral("%1|%2|%3|%4")
                       .arg(c->Left())
                       .arg(c->Top())
                       .arg(c->Width())
                       .arg(c->Height())
                 : QStringLiteral("missing");
    };
    auto grown = [&](const char* name, int left, int top, int width, int height) {
        const QStringList design = at(*loaded, name).split(u'|');
        return QStringLiteral("%1|%2|%3|%4")
            .arg(design.value(0).toInt() + left)
            .arg(design.value(1).toInt() + top)
            .arg(design.value(2).toInt() + width)
            .arg(design.value(3).toInt() + height);
    };
    const QString corner = grown("txtEcke", 1500, 900, 0, 0);
    const QString foot = grown("txtFuss", 0, 900, 750, 0);
    const QString frame = grown("brdInhalt", 0, 0, 1500, 900);
    const QString side = grown("brdSeite", 1500, 0, 0, 900);
    const QString fixed = at(*loaded, "txtFest");
    loaded->setWidth(loaded->Width() + 1500);
    loaded->setHeight(loaded->Height() + 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(at(*loaded, "txtEcke"), corner);
    EXPECT_EQ(at(*loaded, "txtFuss"), foot);
    EXPECT_EQ(at(*loaded, "brdInhalt"), frame);
    EXPECT_EQ(at(*loaded, "brdSeite"), side);
    EXPECT_EQ(at(*loaded, "txtFest"), fixed);
    const QString place = test::placeOfForm(*loaded);
    loaded->close();

    auto again = FormLoader::load(path);
    again->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(test::placeOfForm(*again), place);
    EXPECT_EQ(at(*again, "txtEcke"), corner);
    EXPECT_EQ(at(*again, "brdInhalt"), frame);
}

}  // namespace
}  // namespace vorelle
