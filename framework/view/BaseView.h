// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <vector>

#include "framework/view/Frame.h"

namespace fw {

// Descriptor of a view: what the host asks before it opens one, and the door to every open instance. Handles are the
// instances' identities; an unknown handle gives the default result. Calls on an instance catch and log what it throws;
// OpenNewInstance is the exception: its error reaches the caller and nothing is recorded. An instance is not closed
// from inside a call of its own: the host waits for its loop.
class FRAMEWORK_API TIBaseView : public TObject {
public:
    TIBaseView();
    ~TIBaseView() override;  // closes what is still open

    virtual Text GetName();
    virtual int GetViewID();
    virtual int GetMenuLevel();
    virtual int GetMenuIndex(int Level);  // -1: no place of its own
    virtual int GetMenuID(int Level);
    virtual Text GetMenuCaption(int Level);
    virtual int GetMenuGroupIndex(int Level);
    virtual bool GetIsVisible();
    virtual bool GetIsWindow();
    virtual int64_t OpenNewInstance();           // 0: nothing opened
    virtual bool CloseInstance(int64_t Handle);  // destroys the frame
    virtual bool GetDefaultSize(int& Width, int& Height);
    virtual bool GetWidth(int64_t Handle, int& Width);  // those of GetDefaultSize
    virtual bool GetHeight(int64_t Handle, int& Height);
    virtual bool GetDefaultCaption(Text& Caption);
    virtual bool GetViewCaption(int64_t Handle, Text& Caption);        // that of GetDefaultCaption
    virtual bool HandleCaptionButtonClick(int64_t Handle, int Index);  // runs OnClick with the button as sender
    virtual bool GetViewCaptionButtons(int64_t Handle, TCaptionButtonList& List);  // List is replaced
    virtual bool GetViewCaptionButtonImageList(int64_t Handle, TImageList*& List);
    virtual bool GetViewIcon(int64_t Handle, Text& IconName);
    virtual TIBaseView* GetPreferenceView();
    virtual bool GetIsDialog();
    virtual bool GetIsSizeable();
    virtual bool GetCanDock();
    virtual int GetDockPosition();  // 0 centre
    virtual bool GetShortCutList(std::vector<Text>& List);
    virtual bool ExecuteShortcutAction(int Index);
    virtual bool SetSkin(int64_t Handle, const Text& Skin);
    virtual bool SetLanguage(int64_t Handle, int LanguageId);  // open editors are posted first
    virtual bool SetFont(int64_t Handle, const Text& Font, int Size, int Charset);
    virtual bool ActiveView(int64_t Handle);
    virtual bool DeactiveView(int64_t Handle);
    virtual Text GetLayoutData(int64_t Handle);
    virtual bool SetLayoutData(int64_t Handle, const Text& Data);
    virtual bool SetCustomData(int64_t Handle, int Kind, TObject* Data);
    virtual bool ContainView(int64_t Handle);
    virtual bool SendMessage(int64_t Handle, int Message, int64_t Value);
    virtual bool SetGroupID(int64_t Handle, const Text& GroupId);
    virtual bool GetGroupID(int64_t Handle, Text& GroupId);
    virtual bool GetIsDialogViewAfterMainShow();
    virtual int GetDialogViewIndexAfterMainShow();
    // Takes a complete frame over; called by OpenNewInstance of the descriptor.
    virtual void AddView(std::unique_ptr<TFrame> View);
    virtual void InitializeShortcut();
    virtual void AddNewShortcut(const Text& Name, int Key);  // a known name gets the new key

    TFrame* FindView(int64_t Handle) const;  // null when unknown; borrowed
    std::vector<int64_t> OpenViews() const;  // in order of opening
    int GetShortcutKey(int Index) const;     // of GetShortCutList's order; 0 out of range

private:
    struct TShortcut {
        Text Name;
        int Key;
    };
    std::vector<std::unique_ptr<TFrame>> FViews;  // owned; the handle is the frame's address
    std::vector<TShortcut> FShortcuts;
};

// What a view tells the host about itself.
class FRAMEWORK_API Baseview {
public:
    // Code 1026: the caption buttons changed. The shell listens to Notifications(); what a listener throws is caught.
    static void SendViewNotify(TFrame* View, int Code);
    static TSignal<TFrame*, int>& Notifications();
};

}  // namespace fw
