// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>

#include "view/VentiqOrderFlags.h"
#include "view/VentiqPositionGrid.h"

namespace ventiq {

// Which cell of the position grid may be edited now, how its editor is prepared, and what a change in it does to the
// cell. Edits change cells only: legs are read from the grid by Calculate and Submit.
class TVentiqCellEditing {
public:
    TVentiqCellEditing(TVentiqForm& Form, TVentiqContext& Context, TVentiqPositionGrid& Grid, TVentiqOrderFlags& Flags)
        : FForm(Form), FContext(Context), FGrid(Grid), FFlags(Flags) {}

    // Per row, real price units: the edges of the price-step band in which the row's premium last stood, and the
    // premium when its editor was last seen. Deliberate: entries are written over but neither removed nor moved when
    // rows go; every start of an edit writes its row anew.
    std::map<int, double> FPriceBandUpper, FPriceBandLower, FLastPrice;

    // Asked before any cell enters editing; prepares spin steps and lists of the cell's column.
    void PositionGridViewEditing(TGridTableView& View, TGridColumn& Column, bool& Allow);

    // Remembers whether the change that follows is typed or spun by an arrow key. No key at all: buttons, wheel, mouse.
    // Deliberate: any key counts as typing, and the memory stays until the next change.
    void PositionGridViewEditKeyDown(TGridTableView& View, TGridColumn& Column, TCellEditor& Editor, int& Key,
                                     int Shift);

    // A spun quantity is cut to whole lots, a spun premium walks along the symbol's price steps. What is typed stays.
    void QuantityChange(TObject* Sender);
    void PriceChange(TObject* Sender);

    // A choice in a combo cell goes to the focused row's cell at once.
    void epiSidePropertiesChange(TObject* Sender);
    void OpenCloseChange(TObject* Sender);
    void PrincipalChange(TObject* Sender);
    // An editor made before a language switch still holds the old texts.
    void epiSidePropertiesPopup(TObject* Sender);

private:
    bool MayEdit(const TGridTableView& View, const TGridColumn& Column) const;
    void PrepareQuantity(const Text& Symbol);
    void PreparePremium(int Row, const Text& Symbol);
    // Init fills the flag keys that the symbol offers.
    void PrepareChoices(int ColumnId, const Text& Symbol, void (TVentiqOrderFlags::*Init)(const Text&));
    double RealPremium(int Row, const Text& Symbol) const;
    void CutQuantity(TCellEditor& Editor);
    void MovePremium(TCellEditor& Editor, int Row, bool Spun);
    // Shows a corrected value in the editor and the cell; the change this makes is the handler's own.
    void Correct(TCellEditor& Editor, bool& Updating, int Row, int ColumnId, double Value);
    template <class T>
    T* PropertiesOf(int ColumnId) const;
    void WriteChoice(TObject* Sender, int ColumnId);

    TVentiqForm& FForm;  // all borrowed from the frame, outlive the part
    TVentiqContext& FContext;
    TVentiqPositionGrid& FGrid;
    TVentiqOrderFlags& FFlags;
    bool FQtyKeyTyped = false, FQtyArrowKey = false, FPriceKeyTyped = false, FPriceArrowKey = false;
    bool FQtyUpdating = false, FPriceUpdating = false;
};

}  // namespace ventiq
