// SPDX-License-Identifier: Apache-2.0
#include "framework/view/BaseView.h"

#include <algorithm>

namespace fw {

TIBaseView::TIBaseView() = default;

TIBaseView::~TIBaseView() {
    while (!FViews.empty()) TIBaseView::CloseInstance(FViews.back()->GetHandle());
}

Text TIBaseView::GetName() { return {}; }
int TIBaseView::GetViewID() { return 0; }
int TIBaseView::GetMenuLevel() { return 0; }
int TIBaseView::GetMenuIndex(int) { return -1; }
int TIBaseView::GetMenuID(int) { return 0; }
Text TIBaseView::GetMenuCaption(int) { return {}; }
int TIBaseView::GetMenuGroupIndex(int) { return 0; }
bool TIBaseView::GetIsVisible() { return true; }
bool TIBaseView::GetIsWindow() { return true; }
int64_t TIBaseView::OpenNewInstance() { return 0; }

bool TIBaseView::CloseInstance(int64_t Handle) {
    const auto It = std::find_if(FViews.begin(), FViews.end(), [&](const auto& V) { return V->GetHandle() == Handle; });
    if (It == FViews.end()) return false;
    const std::unique_ptr<TFrame> Closing = std::move(*It);  // unknown to everybody before its destructor runs
    FViews.erase(It);
    return true;
}

bool TIBaseView::GetDefaultSize(int&, int&) { return false; }

bool TIBaseView::GetWidth(int64_t Handle, int& Width) {
    int Height = 0;
    return FindView(Handle) && GetDefaultSize(Width, Height);
}

bool TIBaseView::GetHeight(int64_t Handle, int& Height) {
    int Width = 0;
    return FindView(Handle) && GetDefaultSize(Width, Height);
}

bool TIBaseView::GetDefaultCaption(Text&) { return false; }

bool TIBaseView::GetViewCaption(int64_t Handle, Text& Caption) {
    return FindView(Handle) && GetDefaultCaption(Caption);
}

bool TIBaseView::HandleCaptionButtonClick(int64_t Handle, int Index) {
    TCaptionButtonList Buttons;
    if (!GetViewCaptionButtons(Handle, Buttons)) return false;
    if (Index < 0 || Index >= static_cast<int>(Buttons.size())) return false;
    TCaptionButton* Button = Buttons[static_cast<size_t>(Index)];
    if (!Button || !Button->OnClick) return false;
    const TNotifyEvent Click = Button->OnClick;  // the handler may replace itself
    return Dispatch("HandleCaptionButtonClick", [&] { Click(Button); });
}

bool TIBaseView::GetViewCaptionButtons(int64_t Handle, TCaptionButtonList& List) {
    List.clear();
    TFrame* View = FindView(Handle);
    if (!View) return false;
    return DispatchValue("GetViewCaptionButtons", false, [&] {
        const TCaptionButtonList* Buttons = View->GetViewCaptionButtons();
        if (Buttons) List = *Buttons;
        return Buttons != nullptr;
    });
}

bool TIBaseView::GetViewCaptionButtonImageList(int64_t Handle, TImageList*& List) {
    List = nullptr;
    TFrame* View = FindView(Handle);
    if (!View) return false;
    List = DispatchValue<TImageList*>("GetViewCaptionButtonImageList", nullptr,
                                      [&] { return View->GetViewCaptionButtonImageList(); });
    return List != nullptr;
}

bool TIBaseView::GetViewIcon(int64_t, Text&) { return false; }
TIBaseView* TIBaseView::GetPreferenceView() { return nullptr; }
bool TIBaseView::GetIsDialog() { return false; }
bool TIBaseView::GetIsSizeable() { return true; }
bool TIBaseView::GetCanDock() { return true; }
int TIBaseView::GetDockPosition() { return 0; }

bool TIBaseView::GetShortCutList(std::vector<Text>& List) {
    List.clear();
    for (const auto& S : FShortcuts) List.push_back(S.Name);
    return !List.empty();
}

bool TIBaseView::ExecuteShortcutAction(int) { return false; }

// Views follow the skin and font through the look-and-feel and configuration services.
bool TIBaseView::SetSkin(int64_t, const Text&) { return false; }
bool TIBaseView::SetFont(int64_t, const Text&, int, int) { return false; }

bool TIBaseView::SetLanguage(int64_t Handle, int LanguageId) {
    TFrame* View = FindView(Handle);
    if (!View) return false;
    // An editor whose text is refused does not keep the view in the old language.
    Dispatch("PostEditors", [&] { View->Controls().PostEditors(); });
    return DispatchValue("SetLanguage", false, [&] { return View->SetLanguage(LanguageId); });
}

bool TIBaseView::ActiveView(int64_t Handle) { return ContainView(Handle); }
bool TIBaseView::DeactiveView(int64_t Handle) { return ContainView(Handle); }

Text TIBaseView::GetLayoutData(int64_t Handle) {
    TFrame* View = FindView(Handle);
    if (!View) return {};
    return DispatchValue("GetLayoutData", Text(), [&] { return View->GetLayoutData(); });
}

bool TIBaseView::SetLayoutData(int64_t Handle, const Text& Data) {
    TFrame* View = FindView(Handle);
    return View && DispatchValue("SetLayoutData", false, [&] { return View->SetLayoutData(Data); });
}

bool TIBaseView::SetCustomData(int64_t Handle, int Kind, TObject* Data) {
    TFrame* View = FindView(Handle);
    return View && DispatchValue("SetCustomData", false, [&] { return View->SetCustomData(Kind, Data); });
}

bool TIBaseView::ContainView(int64_t Handle) { return FindView(Handle) != nullptr; }
bool TIBaseView::SendMessage(int64_t, int, int64_t) { return false; }

bool TIBaseView::SetGroupID(int64_t Handle, const Text& GroupId) {
    TFrame* View = FindView(Handle);
    return View && DispatchValue("SetGroupID", false, [&] { return View->SetGroupID(GroupId); });
}

bool TIBaseView::GetGroupID(int64_t Handle, Text& GroupId) {
    TFrame* View = FindView(Handle);
    return View && DispatchValue("GetGroupID", false, [&] { return View->GetGroupID(GroupId); });
}

bool TIBaseView::GetIsDialogViewAfterMainShow() { return false; }
int TIBaseView::GetDialogViewIndexAfterMainShow() { return -1; }

void TIBaseView::AddView(std::unique_ptr<TFrame> View) {
    if (View) FViews.push_back(std::move(View));
}

void TIBaseView::InitializeShortcut() {}

void TIBaseView::AddNewShortcut(const Text& Name, int Key) {
    const auto It = std::find_if(FShortcuts.begin(), FShortcuts.end(), [&](const auto& S) { return S.Name == Name; });
    if (It == FShortcuts.end())
        FShortcuts.push_back({Name, Key});
    else
        It->Key = Key;
}

int TIBaseView::GetShortcutKey(int Index) const {
    return Index >= 0 && Index < static_cast<int>(FShortcuts.size()) ? FShortcuts[static_cast<size_t>(Index)].Key : 0;
}

TFrame* TIBaseView::FindView(int64_t Handle) const {
    const auto It = std::find_if(FViews.begin(), FViews.end(), [&](const auto& V) { return V->GetHandle() == Handle; });
    return It == FViews.end() ? nullptr : It->get();
}

std::vector<int64_t> TIBaseView::OpenViews() const {
    std::vector<int64_t> Handles;
    for (const auto& V : FViews) Handles.push_back(V->GetHandle());
    return Handles;
}

void Baseview::SendViewNotify(TFrame* View, int Code) {
    Dispatch("SendViewNotify", [&] { Notifications()(View, Code); });
}

TSignal<TFrame*, int>& Baseview::Notifications() {
    static auto* const Signal = new TSignal<TFrame*, int>;  // never destroyed: views may outlive the program's statics
    return *Signal;
}

}  // namespace fw
