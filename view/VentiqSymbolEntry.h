// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqOrderFlags.h"
#include "view/VentiqPositionGrid.h"
#include "view/VentiqSubscriptions.h"
#include "view/VentiqSymbolCheck.h"

namespace ventiq {

// What happens to a symbol that is typed, chosen from the popup, or whose market data arrive: it is normalised, checked
// against the selected market, subscribed to, and its row is filled.
class TVentiqSymbolEntry {
public:
    TVentiqSymbolEntry(TVentiqForm& Form, TVentiqContext& Context, TVentiqPositionGrid& Grid, TVentiqTexts& Texts,
                       TVentiqOrderFlags& Flags, TVentiqSymbolCheck& Check, TVentiqSubscriptions& Subscriptions)
        : FForm(Form),
          FContext(Context),
          FGrid(Grid),
          FTexts(Texts),
          FFlags(Flags),
          FCheck(Check),
          FSubscriptions(Subscriptions) {}

    // Validation of the symbol column's editor: Value becomes the converted symbol, or one blank for a symbol of
    // another market. Acts on the focused row.
    void SymbolOnValidate(TObject* Sender, Variant& Value, Text& ErrorText, bool& Error);
    // Market data of a symbol arrived: fills, empties or deletes the first row that holds it, and no other.
    void ReCheckSymbol(const Text& Symbol);
    // A symbol was chosen in the popup; Data is a TCustomMarketData.
    void HandleSelectSymbol(TObject* Sender, TObject* Data);

private:
    void ValidateSymbolAt(int Row, Variant& Value);
    void EmptySymbolAt(int Row);
    void AcceptSymbolAt(int Row);
    void FillRow(int Row, const Text& Symbol);
    Variant FilledCell(int ColumnId, const Variant& Current, const Text& Symbol);
    Text CallPutText(const Text& Symbol) const;
    void ReportForeign(const Text& Typed, const Text& Symbol) const;
    void HidePopup();

    TVentiqForm& FForm;  // all borrowed from the frame, outlive the part
    TVentiqContext& FContext;
    TVentiqPositionGrid& FGrid;
    TVentiqTexts& FTexts;
    TVentiqOrderFlags& FFlags;
    TVentiqSymbolCheck& FCheck;
    TVentiqSubscriptions& FSubscriptions;
};

}  // namespace ventiq
