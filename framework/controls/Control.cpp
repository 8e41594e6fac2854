// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Control.h"

#include "framework/base/FlagGuard.h"

namespace fw {

TControl::~TControl() {
    if (FScope) FScope->Detach(*this);
}

void TControl::SetEnabled(bool Value) {
    if (Value == FEnabled) return;
    FEnabled = Value;
    OnModelChanged();
}

void TControl::SetVisible(bool Value) {
    if (Value == FVisible) return;
    FVisible = Value;
    OnModelChanged();
}

void TControl::SetFocus() {
    if (FScope && FEnabled) FScope->Focus(*this);
}

bool TControl::HasFocus() const { return FScope && FScope->GetFocused() == this; }

TPoint TControl::ClientToScreen(TPoint P) const { return FScreenMapper ? FScreenMapper(P) : P; }

void TControl::FireNotify(const TNotifyEvent& Event, std::string_view What) {
    if (!Event) return;
    const TNotifyEvent Running = Event;  // the handler may replace itself
    Dispatch(EventName(What), [&] { Running(this); });
}

Text TControl::EventName(std::string_view What) const { return (FName.empty() ? Text() : FName + ".").append(What); }

bool TControl::IsHeldElsewhere() const { return FScope && FScope->IsHeldBesides(*this); }

bool TControl::EnsureFocus() {
    if (!HasFocus()) SetFocus();
    return !IsHeldElsewhere();
}

void TControl::PostFrameEditors() {
    if (FScope) FScope->PostEditors();
}

TFocusScope::~TFocusScope() {
    for (TControl* Control : FControls) Control->FScope = nullptr;
}

void TFocusScope::Attach(const Text& Name, TControl& Control) {
    if (TControl* Former = Find(Name); Former && Former != &Control) Detach(*Former);
    if (Control.FScope && Control.FScope != this) Control.FScope->Detach(Control);
    Control.FName = Name;
    if (Control.FScope == this) return;
    Control.FScope = this;
    FControls.push_back(&Control);
}

void TFocusScope::Detach(TControl& Control) {
    if (Control.FScope != this) return;
    Control.FScope = nullptr;
    std::erase(FControls, &Control);
    if (FFocused == &Control) FFocused = nullptr;
    if (FTarget == &Control) FTarget = nullptr;
}

TControl* TFocusScope::Find(std::string_view Name) const {
    const auto Found =
        std::find_if(FControls.begin(), FControls.end(), [&](const TControl* C) { return C->FName == Name; });
    return Found == FControls.end() ? nullptr : *Found;
}

void TFocusScope::PostEditors() {
    const auto Round = FControls;  // handlers may attach and detach
    for (TControl* Control : Round)
        if (Has(Control)) Control->PostEditor();
}

bool TFocusScope::Has(const TControl* Control) const {
    return std::find(FControls.begin(), FControls.end(), Control) != FControls.end();
}

// A control that cannot be reached cannot be mended, so it holds nobody.
bool TFocusScope::Keeps(const TControl& Control) {
    return Control.IsEnabled() && Control.IsVisible() && Control.KeepsFocus();
}

bool TFocusScope::IsHeldBesides(const TControl& Control) const {
    return std::any_of(FControls.begin(), FControls.end(),
                       [&](const TControl* Each) { return Each != &Control && Keeps(*Each); });
}

void TFocusScope::Focus(TControl& Control) {
    FTarget = &Control;
    if (FLeaving) return;  // the leaving under way ends at the new target
    if (FFocused && FFocused != &Control) {
        const TFlagGuard Leaving(FLeaving, EGuardEnd::Clear);
        TControl* Former = FFocused;
        Former->PostEditor();
        if (FFocused == Former && Keeps(*Former))
            FTarget = Former;
        else if (FFocused == Former)
            Former->DoExit();
    }
    FFocused = std::exchange(FTarget, nullptr);
    if (FFocused) FFocused->OnFocusRequested();
}

}  // namespace fw
