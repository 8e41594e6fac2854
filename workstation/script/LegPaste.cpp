// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/LegPaste.h"

#include <algorithm>
#include <array>
#include <utility>

#include "framework/data/ColumnIds.h"
#include "workstation/resources/Texts.h"
#include "workstation/script/LastWarning.h"

namespace ws {

namespace {

using TCells = std::vector<std::string>;

struct TEntryColumn {
    int Tag;
    const char* Caption;
};
constexpr std::array kEntryColumns{
    TEntryColumn{fw::kColumnSymbol, "Res_Symbol"},         TEntryColumn{fw::kColumnSide, "Res_Side"},
    TEntryColumn{fw::kColumnPremium, "Res_PayOffPremium"}, TEntryColumn{fw::kColumnQuantity, "Res_OrderQty"},
    TEntryColumn{fw::kColumnOpenClose, "Res_OpenClose"},   TEntryColumn{fw::kColumnPrincipal, "Res_Principal"}};
constexpr const TEntryColumn& kSymbol = kEntryColumns[0];
// Columns of a copied table that the instrument decides: known, and not typed.
constexpr std::array kShownColumns{"Res_CallPut", "Res_ExpiryDate", "Res_StrikePrice"};
constexpr size_t kShownLetters = 40;

bool IsCaption(const std::string& Cell, const char* Key) {
    for (int Language = 0; Language < kLanguageCount; ++Language)
        if (fw::SameText(Cell, TTextTable::Embedded().Lookup(kTagResource, Key, Language))) return true;
    return false;
}

const TEntryColumn* EntryColumn(const std::string& Cell) {
    for (const TEntryColumn& Column : kEntryColumns)
        if (IsCaption(Cell, Column.Caption)) return &Column;
    return nullptr;
}

// Which cell of a line belongs to which column; null: to none.
using TColumnOrder = std::vector<const TEntryColumn*>;

TColumnOrder FixedOrder() {
    TColumnOrder Order;
    for (const TEntryColumn& Column : kEntryColumns) Order.push_back(&Column);
    return Order;
}

bool IsHeader(const TCells& Line) {
    return std::any_of(Line.begin(), Line.end(),
                       [](const auto& Cell) { return IsCaption(fw::Trim(Cell), kSymbol.Caption); });
}

TColumnOrder OrderOf(const TCells& Header) {
    TColumnOrder Order;
    for (const auto& Cell : Header) {
        const std::string Caption = fw::Trim(Cell);
        const TEntryColumn* Column = EntryColumn(Caption);
        const bool Shown = std::any_of(kShownColumns.begin(), kShownColumns.end(),
                                       [&](const char* Key) { return IsCaption(Caption, Key); });
        if (!Column && !Shown) return FixedOrder();
        Order.push_back(Column);
    }
    return Order;
}

// Long texts are cut between letters.
std::string Shortened(const std::string& Text) {
    size_t Bytes = 0, Letters = 0;
    while (Bytes < Text.size() && Letters <= kShownLetters)
        if ((static_cast<unsigned char>(Text[Bytes++]) & 0xC0) != 0x80) ++Letters;
    return Letters > kShownLetters ? Text.substr(0, Bytes - 1) + "\u2026" : Text;
}

// The quote that ends a quoted cell: not doubled, and a separator or nothing behind it. npos: the cell is not quoted.
size_t ClosingQuote(std::string_view Text, size_t Opening) {
    for (size_t i = Text.find('"', Opening + 1); i != std::string_view::npos; i = Text.find('"', i + 1)) {
        if (Text.substr(i + 1, 1) == "\"")
            ++i;
        else
            return i + 1 == Text.size() || std::string_view("\t\r\n").find(Text[i + 1]) != std::string_view::npos
                       ? i
                       : std::string_view::npos;
    }
    return std::string_view::npos;
}

// A cell is one line: breaks inside of it become blanks.
std::string Unquoted(std::string_view Text) {
    std::string Result;
    for (size_t i = 0; i < Text.size(); ++i) {
        if (Text[i] == '"' || Text.substr(i, 2) == "\r\n") ++i;
        const bool Break = Text[i] == '\t' || Text[i] == '\n' || Text[i] == '\r';
        Result += Break ? ' ' : Text[i];
    }
    return Result;
}

class TLegPaste {
public:
    TLegPaste(fw::TFrame& Frame, fw::TGridTableView& View) : FView(View), FPlayer(Frame) {
        for (int i = 0; i < View.GetColumnCount() && FSymbolColumn < 0; ++i)
            if (View.GetColumn(i)->Tag == fw::kColumnSymbol) FSymbolColumn = i;
    }

    TPasteReport Run(const std::vector<TCells>& Lines) {
        FRow = StartRow();
        FReport.Locked = FRow < 0;
        TColumnOrder Order = FixedOrder();
        bool First = true;
        for (size_t i = 0; i < Lines.size() && !FReport.Locked; ++i) {
            FLine = static_cast<int>(i) + 1;
            if (IsBlank(Lines[i])) continue;
            if (std::exchange(First, false) && IsHeader(Lines[i]))
                Order = OrderOf(Lines[i]);
            else
                TypeLeg(Lines[i], Order);
        }
        if (!FReport.Locked) FView.SetFocusedCell(std::min(FRow, LastRow()), FSymbolColumn);
        return std::move(FReport);
    }

private:
    static bool IsBlank(const TCells& Line) {
        return std::all_of(Line.begin(), Line.end(), [](const auto& Cell) { return fw::Trim(Cell).empty(); });
    }

    int LastRow() const { return FView.GetDataController().GetRecordCount() - 1; }

    // -1 when the view takes no leg.
    int StartRow() {
        FView.PostEditor();
        for (const int Row : {FView.GetFocusedRecord(), LastRow()}) {
            FView.SetFocusedCell(Row, FSymbolColumn);
            if (FView.GetFocusedRecord() == Row && FView.CanEdit(Row, FSymbolColumn)) return Row;
        }
        return -1;
    }

    std::string SymbolAt(int Row) const {
        return fw::Trim(FView.GetDataController().GetValue(Row, FSymbolColumn).AsText());
    }

    bool Type(const TEntryColumn& Column, const std::string& Text) {
        return FPlayer.Play(TStep::Cell(FView.GetName(), FRow, Column.Tag, Text));
    }

    void Refuse(const TEntryColumn& Column, const std::string& Typed, const fw::TRefusal& Reason) {
        TPasteRefusal Refusal{FLine, Column.Caption, Shortened(Typed), Reason.Key, {}};
        for (const auto& Arg : Reason.Args) Refusal.ReasonArgs.push_back(Shortened(Arg));
        FReport.Refused.push_back(std::move(Refusal));
    }

    // Why it was not taken, as far as anybody says.
    fw::TRefusal ReasonOf(const TLastWarning& Warning, const std::string& Typed) const {
        return Warning.ReasonOr(FPlayer.GetReason(), {"Res_PasteSymbolRefused", {Shortened(Typed)}});
    }

    void TypeLeg(const TCells& Line, const TColumnOrder& Order) {
        ++FReport.Rows;
        const auto At = static_cast<size_t>(std::find(Order.begin(), Order.end(), &kSymbol) - Order.begin());
        const bool Last = FRow == LastRow();
        const bool Taken = TypeSymbol(At < Line.size() ? Line[At] : std::string());
        if (!Taken && Last) return;  // the next leg goes into the same row
        if (Taken) ++FReport.Taken;
        for (size_t i = 0; Taken && i < std::min(Line.size(), Order.size()); ++i)
            if (Order[i] && Order[i] != &kSymbol && !fw::Trim(Line[i]).empty()) TypeCell(*Order[i], Line[i]);
        ++FRow;
    }

    bool TypeSymbol(const std::string& Symbol) {
        if (fw::Trim(Symbol).empty()) return Refuse(kSymbol, Symbol, {"Res_PasteNoSymbol", {}}), false;
        if (FReport.Rows > kMostPastedLegs)
            return Refuse(kSymbol, Symbol, {"Res_PasteTooMany", {std::to_string(kMostPastedLegs)}}), false;
        const std::string Former = SymbolAt(FRow);
        const TLastWarning Warning;
        if (Type(kSymbol, Symbol) && !SymbolAt(FRow).empty()) return true;
        Refuse(kSymbol, Symbol, ReasonOf(Warning, Symbol));
        if (FRow == LastRow() || !Former.empty()) Type(kSymbol, Former);
        return false;
    }

    void TypeCell(const TEntryColumn& Column, const std::string& Text) {
        const TLastWarning Warning;
        if (!Type(Column, Text)) Refuse(Column, Text, ReasonOf(Warning, Text));
    }

    fw::TGridTableView& FView;
    TPlayer FPlayer;
    int FSymbolColumn = -1;
    int FRow = -1;  // the next leg's
    int FLine = 0;  // of the pasted text
    TPasteReport FReport;
};

}  // namespace

std::vector<std::string> TPasteRefusal::Args() const {
    std::vector<std::string> Result{std::to_string(Line), Caption, Typed, Reason};
    Result.insert(Result.end(), ReasonArgs.begin(), ReasonArgs.end());
    return Result;
}

std::vector<TCells> ReadPastedCells(std::string_view Pasted) {
    std::vector<TCells> Lines;
    TCells Line;
    for (size_t i = 0; i < Pasted.size(); ++i) {  // one cell and the separator behind it
        const size_t Closing = Pasted[i] == '"' ? ClosingQuote(Pasted, i) : std::string_view::npos;
        const bool Quoted = Closing != std::string_view::npos;
        const size_t End = Quoted ? Closing + 1 : std::min(Pasted.find_first_of("\t\r\n", i), Pasted.size());
        Line.push_back(Quoted ? Unquoted(Pasted.substr(i + 1, Closing - i - 1))
                              : std::string(Pasted.substr(i, End - i)));
        i = End;
        if (i < Pasted.size() && Pasted[i] == '\t') {
            if (i + 1 == Pasted.size()) Line.emplace_back();
            continue;
        }
        if (Pasted.substr(i, 2) == "\r\n") ++i;
        Lines.push_back(std::exchange(Line, {}));
    }
    if (!Line.empty()) Lines.push_back(std::move(Line));
    return Lines;
}

TPasteReport PasteLegs(fw::TFrame& Frame, fw::TGridTableView& View, std::string_view Pasted) {
    return TLegPaste(Frame, View).Run(ReadPastedCells(Pasted));
}

}  // namespace ws
