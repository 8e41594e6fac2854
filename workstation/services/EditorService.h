// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "framework/services/EditorManager.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// Account popups, symbol forms and column layouts. Editors of one group share an account: what one of them gets, from
// the user or a program, goes to the others when control is back in the loop, and to whoever comes to the group later,
// also after all have gone. An editor without a group, one that is disabled and an account that the user does not have
// are left alone.
class TEditorService : public fw::TEditorManager {
public:
    using TConverter = std::function<fw::Text(const fw::Text& Typed)>;
    using TPost = std::function<void(std::function<void()> Task)>;  // to the loop
    TEditorService(TConverter Converter, TPost Post) : FConverter(std::move(Converter)), FPost(std::move(Post)) {}

    void RegisterAccountEditor(fw::TPopupEdit* Editor, const fw::Text& GroupId, bool Flag1, bool Flag2) override;
    void RemoveAccountEditor(fw::TPopupEdit* Editor) override;
    void SetAccountLayoutAccount(fw::TPopupEdit* Editor, const fw::Text& Account) override;
    fw::Text GetConvertSymbol(const fw::Text& Typed) override { return FConverter(Typed); }
    // "id,width,visible;id,width,visible;..." in the order of the columns. Unknown ids are passed over when it is
    // applied.
    fw::Text GetGridColumnLayout(fw::TGridTableView* View, const fw::TColumnInfoList* Columns) override;
    void SetGridColumnLayout(fw::TGridTableView* View, const fw::Text& Layout,
                             const fw::TColumnInfoList* Columns) override;

    // The accounts of the user who is logged in, and the one that stands in a new editor (empty: none). Editors whose
    // account the user does not have are emptied, and groups forget it.
    void SetAccounts(std::vector<TAccountRow> Accounts, std::string DefaultAccount);
    bool HasEditors() const { return !FEditors.empty(); }

private:
    struct TRegistered {
        fw::Text Group;    // "": none
        fw::Text Account;  // when the editor was last looked at
        fw::TConnection Link;
    };
    void Serve(fw::TPopupEdit& Editor);
    void Join(fw::TPopupEdit& Editor, const fw::Text& Group);
    void Follow(fw::TPopupEdit& Editor);
    void ShareLater();
    void Share();
    void Give(fw::TPopupEdit& Editor, const TAccountRow& Account);
    int IndexOfAccount(const std::string& Account) const;
    TConverter FConverter;
    TPost FPost;
    std::vector<TAccountRow> FAccounts;
    std::string FDefaultAccount;
    std::map<fw::TPopupEdit*, TRegistered> FEditors;  // borrowed
    std::map<fw::Text, fw::Text> FGroupAccounts;      // group -> account
    bool FShareWaits = false;
    const fw::TPopupEdit* FGiven = nullptr;  // gets its group's account just now
};

}  // namespace ws
