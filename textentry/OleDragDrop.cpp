#include "textentry/OleDragDrop.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "host/frame/ControlBase.h"
#include "host/input/VirtualKeys.h"
#include "textentry/OleDataObject.h"

namespace vorelle {

namespace {

constexpr int kNone = 0;
constexpr int kCopy = 1;
constexpr int kMove = 2;

OleDragDrop::DragRunner& runner() {
    static OleDragDrop::DragRunner current;
    return current;
}

int effectOf(Qt::DropAction action) {
    switch (action) {
        case Qt::CopyAction:
            return kCopy;
        case Qt::MoveAction:
        case Qt::TargetMoveAction:
            return kMove;
        default:
            return kNone;
    }
}

int effectsOf(Qt::DropActions actions) {
    int effects = kNone;
    if (actions & Qt::CopyAction) {
        effects |= kCopy;
    }
    if (actions & Qt::MoveAction) {
        effects |= kMove;
    }
    return effects;
}

Qt::DropActions actionsOf(int effects) {
    Qt::DropActions actions;
    if (effects & kCopy) {
        actions |= Qt::CopyAction;
    }
    if (effects & kMove) {
        actions |= Qt::MoveAction;
    }
    return actions;
}

// The one action of effects that a drop carries out: move before copy, as proposed.
Qt::DropAction actionOf(int effects, Qt::DropAction proposed) {
    if ((effects & effectOf(proposed)) != 0) {
        return proposed;
    }
    if (effects & kMove) {
        return Qt::MoveAction;
    }
    return (effects & kCopy) ? Qt::CopyAction : Qt::IgnoreAction;
}

int buttonsOf(Qt::MouseButtons buttons) {
    return ((buttons & Qt::LeftButton) ? 1 : 0) | ((buttons & Qt::RightButton) ? 2 : 0) |
           ((buttons & Qt::MiddleButton) ? 4 : 0);
}

QVariant dataOf(const QMimeData* data) {
    return QVariant::fromValue(const_cast<QObject*>(static_cast<const QObject*>(data)));
}

}  // namespace

OleDragDrop::OleDragDrop(QWidget* box, QWidget* pointerWidget, Field field, QObject* parent)
    : QObject(parent), box_(box), pointer_(pointerWidget), field_(std::move(field)) {
    pointer_->installEventFilter(this);
    pointer_->setAcceptDrops(false);
    box_->setAcceptDrops(false);
}

OleDragDrop::~OleDragDrop() = default;

void OleDragDrop::setDragMode(int mode) {
    dragMode_ = mode;
}

void OleDragDrop::setDropMode(int mode) {
    dropMode_ = mode;
    const bool accept = mode == 1 || mode == 2;
    box_->setAcceptDrops(accept);
    pointer_->setAcceptDrops(accept);
}

OleDragDrop::DragRunner OleDragDrop::setDragRunner(DragRunner replacement) {
    return std::exchange(runner(), std::move(replacement));
}

void OleDragDrop::startDrag() {
    const QString text = field_.selectedText ? field_.selectedText() : QString();
    const QPointer<OleDragDrop> self(this);
    auto* data = new OleDataObject(text, [self](OleDataObject& asked, int format) {
        if (self) {
            int dataFormat = format;
            emit self->OLESetData(dataOf(&asked), dataFormat);
        }
    });
    int allowed = kCopy | kMove;
    emit OLEStartDrag(dataOf(data), allowed);
    if (!self || (allowed & (kCopy | kMove)) == 0) {
        delete data;
        return;
    }
    QDrag drag(box_);
    drag.setMimeData(data);  // the drag owns it from here
    connect(&drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
        int effect = effectOf(action);
        bool defaultCursors = true;
        emit OLEGiveFeedback(effect, defaultCursors);
    });
    const Qt::DropActions actions = actionsOf(allowed);
    const Qt::DropAction done =
        runner() ? runner()(drag, actions) : drag.exec(actions, Qt::CopyAction);
    if (!self) {
        return;
    }
    int effect = effectOf(done);
    if (effect == kMove && dragMode_ == 1 && field_.removeSelection &&
        (!field_.takesText || field_.takesText())) {
        field_.removeSelection();
    }
    emit OLECompleteDrag(effect);
}

bool OleDragDrop::eventFilter(QObject* watched, QEvent* event) {
    if (watched != pointer_) {
        return false;
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* press = static_cast<QMouseEvent*>(event);
            pressOnSelection_ = dragMode_ == 1 && press->button() == Qt::LeftButton &&
                                field_.onSelection &&
                                field_.onSelection(press->position().toPoint());
            pressAt_ = press->position().toPoint();
            return pressOnSelection_;  // the selection stays for the drag
        }
        case QEvent::MouseMove: {
            auto* move = static_cast<QMouseEvent*>(event);
            if (pressOnSelection_ && (move->buttons() & Qt::LeftButton) &&
                (move->position().toPoint() - pressAt_).manhattanLength() >=
                    QApplication::startDragDistance()) {
                pressOnSelection_ = false;
                startDrag();
                return true;
            }
            return pressOnSelection_;
        }
        case QEvent::MouseButtonRelease:
            if (pressOnSelection_) {
                pressOnSelection_ = false;  // a click on the selection: the native click
                auto* release = static_cast<QMouseEvent*>(event);
                QMouseEvent press(QEvent::MouseButtonPress, release->position(),
                                  release->globalPosition(), Qt::LeftButton, Qt::LeftButton,
                                  release->modifiers());
                pointer_->removeEventFilter(this);
                QApplication::sendEvent(pointer_, &press);
                pointer_->installEventFilter(this);
            }
            return false;
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::DragLeave:
        case QEvent::Drop:
            return dragEvent(event);
        default:
            return false;
    }
}

bool OleDragDrop::dragEvent(QEvent* event) {
    if (dropMode_ == 2) {
        if (field_.takesText && !field_.takesText()) {
            event->ignore();
            return true;
        }
        return false;  // the field takes the text itself
    }
    if (dropMode_ != 1) {
        event->ignore();
        return true;
    }
    const float twips = static_cast<float>(kTwipsPerPixel);
    if (event->type() == QEvent::DragLeave) {
        int effect = kNone;
        emit OLEDragOver(lastData_, effect, 0, 0, 0, 0, 1);
        lastData_ = QVariant();
        return true;
    }
    auto* drop = static_cast<QDropEvent*>(event);
    const QVariant data = dataOf(drop->mimeData());
    lastData_ = data;
    int effect = effectsOf(drop->possibleActions()) & effectOf(drop->proposedAction());
    if (effect == kNone) {
        effect = effectsOf(drop->possibleActions());
    }
    const int button = buttonsOf(drop->buttons());
    const int shift = ShiftFromModifiers(drop->modifiers());
    const QPointF at = drop->position();
    const float x = static_cast<float>(at.x()) * twips;
    const float y = static_cast<float>(at.y()) * twips;
    if (event->type() == QEvent::Drop) {
        emit OLEDragDrop(data, effect, button, shift, x, y);
        lastData_ = QVariant();
    } else {
        emit OLEDragOver(data, effect, button, shift, x, y,
                         event->type() == QEvent::DragEnter ? 0 : 2);
    }
    const Qt::DropAction action = actionOf(effect, drop->proposedAction());
    drop->setDropAction(action);
    // An entered drag is taken, so that its moves come here; each move and the drop say
    // whether the field is a target.
    if (action != Qt::IgnoreAction || event->type() == QEvent::DragEnter) {
        drop->accept();
    } else {
        drop->ignore();
    }
    return true;
}

}  // namespace vorelle
