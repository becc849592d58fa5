#pragma once

#include <QLineEdit>
#include <QStringList>

#include "host/frame/ControlHost.h"
#include "host/form/Form.h"
#include "host/frame/FormControl.h"

namespace vorelle::test {

// A control that records its life-cycle steps, with one text pair (Caption), a colour
// whose default can be changed as a new version would, and a native field that takes the
// focus.
class RecordingControl : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "rec")
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)

public:
    static inline qint32 defaultForeColor = 0x123456;
    static inline bool neverFocus = false;

    explicit RecordingControl(QWidget* parent = nullptr) : FormControl(parent) {
        field = new QLineEdit(this);
        markConstituent(field);
        field->setObjectName(QStringLiteral("txtField"));
    }

    using ControlBase::ForeColor;
    using ControlBase::HookAllowed;
    using ControlBase::setForeColor;

    QString Caption() const { return caption.current(); }
    void setCaption(const QString& v) { letPair(caption, v, QStringLiteral("Caption"), show()); }
    QString Caption_de() const { return caption.de(); }
    void setCaption_de(const QString& v) {
        letPairDe(caption, v, QStringLiteral("Caption"), show());
    }
    QString Caption_en() const { return caption.en(); }
    void setCaption_en(const QString& v) {
        letPairEn(caption, v, QStringLiteral("Caption"), show());
    }

    QStringList steps;
    QString shown;
    TextPair caption;
    QLineEdit* field;
    bool hookAllowedAtRead = false;

protected:
    void Initialize() override {
        FormControl::Initialize();
        steps << QStringLiteral("Initialize");
    }
    void InitProperties() override {
        FormControl::InitProperties();
        steps << QStringLiteral("InitProperties");
    }
    void ReadProperties(const PropertyBag& bag) override {
        FormControl::ReadProperties(bag);
        steps << QStringLiteral("ReadProperties");
        caption.setDe(bag.ReadProperty(QStringLiteral("Caption_de"), QString()).toString());
        caption.setEn(bag.ReadProperty(QStringLiteral("Caption_en"), QString()).toString());
        readForeColor(bag, defaultForeColor);
        readResizing(bag);
    }
    void WriteProperties(PropertyBag& bag) const override {
        FormControl::WriteProperties(bag);
        bag.WriteProperty(QStringLiteral("Caption_de"), caption.de(), QString());
        bag.WriteProperty(QStringLiteral("Caption_en"), caption.en(), QString());
        writeForeColor(bag, defaultForeColor);
        writeResizing(bag);
    }
    void ApplyLanguage() override {
        steps << QStringLiteral("ApplyLanguage");
        shown = caption.current();
    }
    void AfterReadProperties() override {
        steps << QStringLiteral("AfterReadProperties");
        hookAllowedAtRead = HookAllowed();
    }
    void Resize() override {
        FormControl::Resize();
        steps << QStringLiteral("Resize");
    }
    void EnterFocus() override { steps << QStringLiteral("EnterFocus"); }
    void ExitFocus() override { steps << QStringLiteral("ExitFocus"); }
    bool neverTakesFocus() const override { return neverFocus; }

private:
    std::function<void(const QString&)> show() {
        return [this](const QString& text) { shown = text; };
    }
};

// A host that answers from fields and records what the control asks of it.
class RecordingHost : public ControlHost {
public:
    RecordingHost(ControlBase* control, Form* parent, bool userMode, QString name)
        : ControlHost(control), parent_(parent), userMode_(userMode), name_(std::move(name)) {}
    bool UserMode() const override { return userMode_; }
    QString DisplayName() const override { return name_; }
    Form* Parent() const override { return parent_; }

private:
    Form* parent_;
    bool userMode_;
    QString name_;
};

// A form with the optional routines that it offers in place of its own events.
class RoutineForm : public Form {
    Q_OBJECT
public:
    QStringList calls;
    int cancelWith = 0;
    int dropKey = 0;

    Q_INVOKABLE void Form_Load2() { calls << QStringLiteral("Load2"); }
    Q_INVOKABLE void Form_Activate2() { calls << QStringLiteral("Activate2"); }
    Q_INVOKABLE void Form_Deactivate2() { calls << QStringLiteral("Deactivate2"); }
    Q_INVOKABLE void Form_Resize2() { calls << QStringLiteral("Resize2"); }
    Q_INVOKABLE void Form_QueryUnload2(int& Cancel, int UnloadMode) {
        calls << QStringLiteral("QueryUnload2(%1,%2)").arg(Cancel).arg(UnloadMode);
        Cancel = cancelWith;
    }
    Q_INVOKABLE void Form_KeyDown2(int& KeyCode, int Shift) {
        calls << QStringLiteral("KeyDown2(%1,%2)").arg(KeyCode).arg(Shift);
        if (KeyCode == dropKey) {
            KeyCode = 0;
        }
    }
    Q_INVOKABLE void Form_MouseDown2(int Button, int Shift, float X, float Y) {
        calls << QStringLiteral("MouseDown2(%1,%2,%3,%4)").arg(Button).arg(Shift).arg(X).arg(Y);
    }
};

}  // namespace vorelle::test
