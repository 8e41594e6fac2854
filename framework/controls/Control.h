// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "framework/base/Dispatch.h"
#include "framework/base/Object.h"
#include "framework/base/Signal.h"
#include "framework/base/Text.h"

namespace fw {

struct TPoint {
    int X = 0, Y = 0;
};

class TFocusScope;

// A control of a form, without any screen: it owns state and rules; a renderer draws it, listens to OnModelChanged and
// its kin, and forwards the user's actions by one call each.
class FRAMEWORK_API TControl : public TObject {
public:
    TControl() = default;
    ~TControl() override;

    const Text& GetName() const { return FName; }
    bool IsEnabled() const { return FEnabled; }
    void SetEnabled(bool Value);
    bool IsVisible() const { return FVisible; }
    void SetVisible(bool Value);

    // Takes the focus within the frame: the control that had it posts its editor and is told that it was left.
    // A control outside a frame has no focus to take. Disabled controls do not take it. Asked for while a control is
    // being left, it goes to whoever asked last, and nobody is left twice. A control that refuses what is typed into it
    // keeps the focus, and is told that it was asked for.
    void SetFocus();
    bool HasFocus() const;
    // Another control of the frame refuses what is typed into it: until that is mended or cancelled, users can do
    // nothing here.
    bool IsHeldElsewhere() const;

    // Writes what is typed and not yet applied into the value or cell; nothing open: nothing happens.
    virtual void PostEditor() {}

    // Where a point of the control (its own pixels) lies on the screen; without a renderer the point itself.
    TPoint ClientToScreen(TPoint P) const;
    void SetScreenMapper(std::function<TPoint(TPoint)> Mapper) { FScreenMapper = std::move(Mapper); }

    // Expires when the control dies: a renderer that may outlive its model tests it before every use.
    std::weak_ptr<const void> GetLifetime() const { return FLifetime; }

    TSignal<> OnModelChanged;    // anything a renderer shows, unless a narrower signal tells it
    TSignal<> OnFocusRequested;  // a program gave this control the focus

protected:
    // The focus goes to another control. Called once, after PostEditor.
    virtual void DoExit() {}
    // Asked after PostEditor: the editor is still open, because what is typed was refused.
    virtual bool KeepsFocus() const { return false; }
    // Runs an event of the form; what it throws is logged as "<name>.<What>". The control may die in the handler, so a
    // caller does nothing with it afterwards.
    void FireNotify(const TNotifyEvent& Event, std::string_view What);
    Text EventName(std::string_view What) const;
    // User input goes to the control that has the focus: takes it unless it is here already. False: it is held
    // elsewhere, the input is not taken.
    bool EnsureFocus();
    // Posts every editor of the frame; nothing outside a frame.
    void PostFrameEditors();

private:
    friend class TFocusScope;
    Text FName;
    bool FEnabled = true;
    bool FVisible = true;
    TFocusScope* FScope = nullptr;  // borrowed; lets go of the control when it ends
    std::function<TPoint(TPoint)> FScreenMapper;
    std::shared_ptr<const void> FLifetime = std::make_shared<char>();
};

// The controls of one frame by form name, and which of them has the focus.
class FRAMEWORK_API TFocusScope {
public:
    TFocusScope() = default;
    ~TFocusScope();
    TFocusScope(const TFocusScope&) = delete;
    TFocusScope& operator=(const TFocusScope&) = delete;

    // Names the control and takes it in. Borrowed; a control that dies leaves by itself. Names are unique: a second one
    // replaces the first.
    void Attach(const Text& Name, TControl& Control);
    void Detach(TControl& Control);

    TControl* Find(std::string_view Name) const;                          // null when unknown
    const std::vector<TControl*>& Controls() const { return FControls; }  // in order of attachment
    TControl* GetFocused() const { return FFocused; }
    // Posts the editors of every control.
    void PostEditors();

private:
    friend class TControl;
    void Focus(TControl& Control);
    bool IsHeldBesides(const TControl& Control) const;
    static bool Keeps(const TControl& Control);
    bool Has(const TControl* Control) const;
    std::vector<TControl*> FControls;
    TControl* FFocused = nullptr;
    TControl* FTarget = nullptr;  // who gets the focus once the leaving is done
    bool FLeaving = false;
};

}  // namespace fw
