// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/Button.h"
#include "framework/controls/GridTableView.h"
#include "tests/framework/controls/LogFixture.h"

namespace fw {

// A table with one column of each editor kind, three records, every cell editable, in a frame with a button.
class TGridFixture : public TLogFixture {
protected:
    enum EColumn { kSymbol, kSide, kPremium, kQuantity, kMemo, kStrike };

    TGridFixture() {
        Scope.Attach("grid", View);
        Scope.Attach("btn", Button);
        Popup = &Add(0, EValueType::String).SetProperties<TcxPopupEditProperties>();
        Combo = &Add(11, EValueType::String).SetProperties<TcxComboBoxProperties>();
        Combo->FixedList = true;
        Combo->Items = {"Buy", "Sell"};
        Premium = &Add(103, EValueType::Float).SetProperties<TcxSpinEditProperties>();
        Premium->FloatValues = true;
        Quantity = &Add(4, EValueType::Float).SetProperties<TcxSpinEditProperties>();
        Quantity->FloatValues = true;
        Quantity->MinValue = 0.0;
        Quantity->MaxValue = 1000.0;
        Add(7, EValueType::String);
        Add(27, EValueType::Float);
        Data.SetRecordCount(3);
        Links += View.OnEditorChanged.Connect([this] { Editors.push_back(View.GetEditor() ? "open" : "closed"); });
        Links += View.OnEdited.Connect([this](int Record, int Column, const Variant& Typed, const Variant& Cell) {
            Edits.push_back(std::to_string(Record) + "," + std::to_string(Column) + ": " + Typed.AsText() + " > " +
                            Cell.AsText());
        });
    }

    TGridColumn& Add(int Tag, EValueType Type) {
        TGridColumn& Column = View.CreateColumn();
        Column.Tag = Tag;
        Column.ValueType = Type;
        Column.Editing = true;
        return Column;
    }

    // Types a text into a cell; the editor stays open.
    TCellEditor& Type(int Record, int Column, const Text& Typed) {
        TCellEditor* Editor = View.StartEdit(Record, Column);
        if (!Editor) throw std::logic_error("the cell cannot be edited");
        Editor->SetEditText(Typed);
        return *Editor;
    }

    Variant Cell(int Record, int Column) const { return Data.GetValue(Record, Column); }

    TFocusScope Scope;
    TGridTableView View;
    TGridDataController& Data = View.GetDataController();
    TButton Button;
    TcxPopupEditProperties* Popup = nullptr;
    TcxComboBoxProperties* Combo = nullptr;
    TcxSpinEditProperties* Premium = nullptr;
    TcxSpinEditProperties* Quantity = nullptr;
    TSteps Editors, Edits;
    TConnections Links;
};

}  // namespace fw
