// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/data/ColumnInfo.h"

namespace fw {

// Host behaviour behind editors and grids: the account popup, symbol forms, column layouts.
class FRAMEWORK_API TEditorManager : public TObject {
public:
    ~TEditorManager() override;
    static TEditorManager& GetInstance();
    static TEditorManager* SetInstance(TEditorManager* Service);

    // Fills and serves the editor's account popup; the chosen account code stands in the editor's Hint. Registering a
    // registered editor replaces the registration and keeps its account. An editor that is not registered is disabled.
    // Editors of one group that has a name share the account; an account of the others comes from the host's loop.
    virtual void RegisterAccountEditor(TPopupEdit* Editor, const Text& GroupId, bool Flag1, bool Flag2) = 0;
    virtual void RemoveAccountEditor(TPopupEdit* Editor) = 0;  // not registered: nothing happens
    // Puts a saved account into a registered editor when the user may use it, and fires the editor's exit.
    virtual void SetAccountLayoutAccount(TPopupEdit* Editor, const Text& Account) = 0;

    // The exchange's symbol form of a typed text. Converting a converted text gives it back.
    virtual Text GetConvertSymbol(const Text& Typed) = 0;

    virtual Text GetGridColumnLayout(TGridTableView* View, const TColumnInfoList* Columns) = 0;
    virtual void SetGridColumnLayout(TGridTableView* View, const Text& Layout, const TColumnInfoList* Columns) = 0;
};

}  // namespace fw
