#include "TxtFixture.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>

#include "textentry/OleDragDrop.h"

namespace vorelle::test {
namespace {

struct OverCall {
    int effect;
    int button;
    int shift;
    float x;
    float y;
    int state;
    QString text;
};

// A Txt whose drags end through a double instead of the platform's loop, and whose OLE
// events are recorded; handlers set the effects.
class TxtDragDropTest : public TxtTest {
protected:
    QList<OverCall> overs;
    QList<OverCall> drops;
    QList<int> completed;
    QList<int> feedback;
    int overEffect = -1;  // the effect the handler gives, -1 to leave it
    int allowedEffects = -1;
    QList<Qt::DropActions> runs;
    QString dragged;
    Qt::DropAction dropResult = Qt::CopyAction;
    OleDragDrop::DragRunner previous;

    void SetUp() override {
        previous = OleDragDrop::setDragRunner([this](QDrag& drag, Qt::DropActions allowed) {
            runs.append(allowed);
            emit drag.actionChanged(Qt::MoveAction);
            dragged = drag.mimeData()->text();
            return dropResult;
        });
    }
    void TearDown() override {
        OleDragDrop::setDragRunner(previous);
        TxtTest::TearDown();
    }
    void makeWith(int dragMode, int dropMode) {
        make(
            {{QStringLiteral("OLEDragMode"), dragMode}, {QStringLiteral("OLEDropMode"), dropMode}});
        auto text = [](const QVariant& data) {
            auto* mime = qobject_cast<QMimeData*>(data.value<QObject*>());
            return mime ? mime->text() : QStringLiteral("<none>");
        };
        QObject::connect(txt, &Txt::OLEDragOver,
                         [=, this](QVariant data, int& effect, int button, int shift, float x,
                                   float y, int state) {
                             overs.append({effect, button, shift, x, y, state, text(data)});
                             if (overEffect >= 0) {
                                 effect = overEffect;
                             }
                         });
        QObject::connect(
            txt, &Txt::OLEDragDrop,
            [=, this](QVariant data, int& effect, int button, int shift, float x, float y) {
                drops.append({effect, button, shift, x, y, -1, text(data)});
            });
        QObject::connect(txt, &Txt::OLECompleteDrag, [this](int& e) { completed.append(e); });
        QObject::connect(txt, &Txt::OLEGiveFeedback, [this](int& e, bool&) { feedback.append(e); });
        QObject::connect(txt, &Txt::OLEStartDrag, [this](QVariant, int& allowed) {
            if (allowedEffects >= 0) {
                allowed = allowedEffects;
            }
        });
    }
    // Sends a drag of `text` entering, moving over and dropping on the field; returns
    // whether each of the three was accepted.
    QList<bool> dragOver(const QString& text) {
        QMimeData data;
        data.setText(text);
        const QPoint at(12, 6);
        const auto actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(field(), &enter);
        QDragMoveEvent move(at + QPoint(4, 0), actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(field(), &move);
        QDropEvent drop(at + QPoint(4, 0), actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(field(), &drop);
        return {enter.isAccepted(), move.isAccepted(), drop.isAccepted()};
    }
};

TEST_F(TxtDragDropTest, WithoutDropModeNothingIsTaken) {
    makeWith(0, 0);
    field()->setText(QStringLiteral("abc"));
    const QList<bool> accepted = dragOver(QStringLiteral("XY"));
    EXPECT_EQ(accepted, (QList<bool>{false, false, false}));
    EXPECT_TRUE(overs.isEmpty());
    EXPECT_EQ(field()->text(), QStringLiteral("abc"));
}

TEST_F(TxtDragDropTest, ManualDropRaisesTheEventsAndLeavesTheTextToTheHost) {
    makeWith(0, 1);
    field()->setText(QStringLiteral("abc"));
    const QList<bool> accepted = dragOver(QStringLiteral("XY"));
    EXPECT_EQ(accepted, (QList<bool>{true, true, true}));
    ASSERT_EQ(overs.size(), 2);
    EXPECT_EQ(overs.at(0).state, 0);
    EXPECT_EQ(overs.at(1).state, 2);
    EXPECT_EQ(overs.at(0).effect, 2);  // Shift proposes a move
    EXPECT_EQ(overs.at(1).effect, 1);  // no key: a copy
    EXPECT_EQ(overs.at(0).button, 1);
    EXPECT_EQ(overs.at(0).shift, 1);
    EXPECT_FLOAT_EQ(overs.at(0).x, 12 * 15.0F);
    EXPECT_FLOAT_EQ(overs.at(1).x, 16 * 15.0F);
    EXPECT_FLOAT_EQ(overs.at(0).y, 6 * 15.0F);
    EXPECT_EQ(overs.at(0).text, QStringLiteral("XY"));
    ASSERT_EQ(drops.size(), 1);
    EXPECT_EQ(drops.at(0).text, QStringLiteral("XY"));
    EXPECT_EQ(field()->text(), QStringLiteral("abc"));

    // A handler that refuses makes the field no target; leaving tells State 1.
    overEffect = 0;
    overs.clear();
    QMimeData data;
    data.setText(QStringLiteral("Z"));
    QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(field(), &enter);
    QDragMoveEvent move(QPoint(5, 3), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(field(), &move);
    EXPECT_FALSE(move.isAccepted());
    QDragLeaveEvent leave;
    QApplication::sendEvent(field(), &leave);
    ASSERT_EQ(overs.size(), 3);
    EXPECT_EQ(overs.at(2).state, 1);
}

TEST_F(TxtDragDropTest, AutomaticDropTakesTheTextWithoutEvents) {
    makeWith(0, 2);
    field()->setText(QStringLiteral("abc"));
    field()->setCursorPosition(3);
    const QList<bool> accepted = dragOver(QStringLiteral("XY"));
    EXPECT_TRUE(accepted.at(2));
    EXPECT_TRUE(field()->text().contains(QStringLiteral("XY")));
    EXPECT_TRUE(overs.isEmpty());
    EXPECT_TRUE(drops.isEmpty());

    // A password field takes no dropped text: its box holds only marks.
    txt->setPasswordChar(QStringLiteral("*"));
    txt->setPassword(QStringLiteral("pw"));
    const QList<bool> refused = dragOver(QStringLiteral("XY"));
    EXPECT_FALSE(refused.at(2));
    EXPECT_EQ(field()->text(), QStringLiteral("??"));
}

TEST_F(TxtDragDropTest, OLEDragStartsADragOfTheSelectionInEitherMode) {
    makeWith(0, 0);
    field()->setText(QStringLiteral("hello world"));
    field()->setSelection(6, 5);
    dropResult = Qt::MoveAction;
    txt->OLEDrag();
    ASSERT_EQ(runs.size(), 1);
    EXPECT_EQ(runs.at(0), Qt::CopyAction | Qt::MoveAction);
    EXPECT_EQ(dragged, QStringLiteral("world"));
    EXPECT_EQ(feedback, (QList<int>{2}));
    EXPECT_EQ(completed, (QList<int>{2}));
    EXPECT_EQ(field()->text(), QStringLiteral("hello world"));  // manual: the host moves

    // The host may narrow the effects, or cancel with none.
    allowedEffects = 1;
    dropResult = Qt::CopyAction;
    txt->OLEDrag();
    EXPECT_EQ(runs.at(1), Qt::DropActions(Qt::CopyAction));
    allowedEffects = 0;
    txt->OLEDrag();
    EXPECT_EQ(runs.size(), 2);
    EXPECT_EQ(completed, (QList<int>{2, 1}));
}

TEST_F(TxtDragDropTest, AutomaticDragStartsByMouseAndAMoveTakesTheTextOut) {
    makeWith(1, 0);
    field()->setText(QStringLiteral("hello world"));
    field()->setSelection(0, 5);
    dropResult = Qt::MoveAction;
    const QPoint on(2, field()->height() / 2);  // on the selection
    ASSERT_EQ(field()->cursorPositionAt(on), 0);
    QTest::mousePress(field(), Qt::LeftButton, {}, on);
    EXPECT_EQ(field()->SelLength(), 5);  // the press keeps the selection
    QMouseEvent move(QEvent::MouseMove, QPointF(on + QPoint(30, 0)),
                     QPointF(field()->mapToGlobal(on + QPoint(30, 0))), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field(), &move);
    ASSERT_EQ(runs.size(), 1);
    EXPECT_EQ(dragged, QStringLiteral("hello"));
    EXPECT_EQ(field()->text(), QStringLiteral(" world"));
    EXPECT_EQ(completed, (QList<int>{2}));
    QTest::mouseRelease(field(), Qt::LeftButton, {}, on + QPoint(30, 0));

    // Manual mode: the same gesture selects, no drag.
    txt->setOLEDragMode(0);
    field()->setSelection(0, 3);
    QTest::mousePress(field(), Qt::LeftButton, {}, on);
    QApplication::sendEvent(field(), &move);
    EXPECT_EQ(runs.size(), 1);
}

TEST_F(TxtDragDropTest, ATargetAskingForTextThatIsNotThereRaisesOLESetData) {
    makeWith(0, 0);
    field()->setText(QStringLiteral("abc"));
    field()->selectAll();
    QObject::connect(txt, &Txt::OLEStartDrag, [](QVariant data, int&) {
        qobject_cast<QMimeData*>(data.value<QObject*>())->clear();  // the host fills it late
    });
    QList<int> formats;
    QObject::connect(txt, &Txt::OLESetData, [&](QVariant data, int& format) {
        formats.append(format);
        qobject_cast<QMimeData*>(data.value<QObject*>())->setText(QStringLiteral("late"));
    });
    txt->OLEDrag();
    EXPECT_EQ(dragged, QStringLiteral("late"));
    EXPECT_EQ(formats, (QList<int>{1}));
}

}  // namespace
}  // namespace vorelle::test
