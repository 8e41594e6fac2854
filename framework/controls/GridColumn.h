// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "framework/controls/EditorProperties.h"

namespace fw {

class TGridTableView;

enum class EValueType { String, Float };

// One column of a table view; the view owns it. Changes of plain members between the view's BeginUpdate and EndUpdate
// are shown at its end; Caption, Width and Visible have setters that tell the renderer at once.
class FRAMEWORK_API TGridColumn : public TObject {
public:
    explicit TGridColumn(TGridTableView& View) : FView(View) {}
    ~TGridColumn() override;

    TGridTableView& GetView() const { return FView; }
    int GetIndex() const;  // position among the view's columns

    const Text& GetCaption() const { return FCaption; }
    void SetCaption(Text Value);
    int GetWidth() const { return FWidth; }  // pixels at scale 100
    void SetWidth(int Value);
    bool IsVisible() const { return FVisible; }
    void SetVisible(bool Value);

    int Tag = 0;  // the host-wide column number
    int MinWidth = 0;
    EAlignment HeaderAlignment = EAlignment::Left;
    EValueType ValueType = EValueType::String;
    bool Editing = false, Sorting = false, Filtering = false, Focusing = true;

    // Owned; null: plain text editor. SetProperties<TcxSpinEditProperties>() creates and returns them; an editor that
    // is open in the column is cancelled.
    TcxEditProperties* GetProperties() const { return FProperties.get(); }
    template <class T>
    T& SetProperties() {
        auto Made = std::make_unique<T>();
        T& Result = *Made;
        ReplaceProperties(std::move(Made));
        return Result;
    }

    // May replace the text that the grid would show.
    std::function<void(TGridColumn& Column, int Record, Text& Shown)> OnGetDisplayText;
    // May replace the tool tip of a cell, which is "" or, with the view's cell hints on, the cell's own text.
    std::function<void(TGridColumn& Column, int Record, Text& Hint)> OnGetHint;
    // May choose other properties for one row; Properties comes in as the column's own.
    std::function<void(TGridColumn& Column, int Row, TcxEditProperties*& Properties)> OnGetProperties;

private:
    void ReplaceProperties(std::unique_ptr<TcxEditProperties> Value);
    TGridTableView& FView;
    Text FCaption;
    int FWidth = 0;
    bool FVisible = true;
    std::unique_ptr<TcxEditProperties> FProperties;
};

}  // namespace fw
