// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "framework/services/EditorManager.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// Account popups, symbol forms and column layouts.
class TEditorService : public fw::TEditorManager {
public:
    using TConverter = std::function<fw::Text(const fw::Text& Typed)>;
    explicit TEditorService(TConverter Converter) : FConverter(std::move(Converter)) {}

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
    // account the user does not have are emptied.
    void SetAccounts(std::vector<TAccountRow> Accounts, std::string DefaultAccount);
    bool HasEditors() const { return !FEditors.empty(); }

private:
    void Serve(fw::TPopupEdit& Editor);
    int IndexOfAccount(const std::string& Account) const;
    TConverter FConverter;
    std::vector<TAccountRow> FAccounts;
    std::string FDefaultAccount;
    std::map<fw::TPopupEdit*, fw::Text> FEditors;  // borrowed editors and their group
};

}  // namespace ws
