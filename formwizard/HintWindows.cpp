#include "formwizard/HintWindows.h"

#include "formwizard/ModuleSwitches.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"

namespace vorelle {

HintWindows::~HintWindows() = default;

void SystemHintWindows::toolTipShow(const QString&, Form*, const QString&, const QString&) {}

void SystemHintWindows::toolTipHide() {}

void SystemHintWindows::captionExpandShow(const CaptionExpansion& expansion) {
    expansion_ = expansion;
    shown_ = true;
}

void SystemHintWindows::captionExpandHide() {
    shown_ = false;
}

VORELLE_DEFINE_SERVICE(HintWindows, SystemHintWindows)

void ToolTipShow(const QString& Name, Form* form, const QString& Text_de, const QString& Text_en) {
    HintWindows::instance().toolTipShow(Name, form, Text_de, Text_en);
}

void CaptionExpandShow(const CaptionExpansion& expansion) {
    HintWindows::instance().captionExpandShow(expansion);
}

void ToolTipHide() {
    HintWindows::instance().toolTipHide();
}

void CaptionExpandHide() {
    HintWindows::instance().captionExpandHide();
}

}  // namespace vorelle
