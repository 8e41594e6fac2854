// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A trader at the real view: it stands over the whole workstation and the sample market, whose clock the test drives.

#include "framework/controls/GridTableView.h"
#include "registration/VentiqConstDef.h"
#include "registration/VentiqInterface.h"
#include "tests/services/ServiceFixture.h"
#include "workstation/script/Player.h"

namespace fw {

inline void PrintTo(const Variant& Value, std::ostream* Out) {
    *Out << (Value.IsNull() ? "null" : Value.IsText() ? '"' + Value.AsText() + '"' : Value.AsText());
}

}  // namespace fw

namespace ws {

// All cells of the legs' grid, row by row.
using TGridCells = std::vector<std::vector<fw::Variant>>;

class TTraderFixture : public TServiceFixture {
protected:
    static constexpr const char* kLegs = "PositionGridView";
    ventiq::TIVentiq View;
    int64_t Handle = 0;
    std::vector<fw::TLogEntry> Entries;
    fw::TConnection EntryLink;

    TTraderFixture() {
        EntryLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Entries.push_back(Entry); });
    }
    ~TTraderFixture() override { CloseView(); }

    void OpenView(const std::string& User = {}) {
        CloseView();
        Open(User);
        Handle = View.OpenNewInstance();
    }
    void CloseView() {
        if (std::exchange(Handle, 0) == 0) return;
        View.CloseInstance(View.OpenViews().front());
        EXPECT_FALSE(Station->HasOwners()) << "the closed view has let go of everything";
    }

    fw::TFrame& Frame() { return *View.FindView(Handle); }
    bool Play(const TStep& Step) { return TPlayer(Frame()).Play(Step); }
    bool Choose(const char* Exchange, const char* Series, const char* Month) {
        return Play(TStep::Select("cmbExchange", Exchange)) && Play(TStep::Select("cmbSeries", Series)) &&
               Play(TStep::Select("cmbMonth", Month));
    }
    bool Type(int Row, int Column, const std::string& Typed) { return Play(TStep::Cell(kLegs, Row, Column, Typed)); }

    fw::TGridTableView& Legs() { return *Frame().FindControl<fw::TGridTableView>(kLegs); }
    int Rows() { return Legs().GetDataController().GetRecordCount(); }
    int ColumnOf(int Tag) {
        const auto& Grid = Legs();
        int Index = 0;
        while (Grid.GetColumn(Index)->Tag != Tag) ++Index;
        return Index;
    }
    fw::Variant CellOf(int Row, int Column) { return Legs().GetDataController().GetValue(Row, ColumnOf(Column)); }
    TGridCells Cells() {
        const auto& Grid = Legs();
        TGridCells Result(static_cast<size_t>(Rows()));
        for (size_t Row = 0; Row < Result.size(); ++Row)
            for (int Column = 0; Column < Grid.GetColumnCount(); ++Column)
                Result[Row].push_back(Grid.GetDataController().GetValue(static_cast<int>(Row), Column));
        return Result;
    }

    // Opens a cell's editor and leaves it open; with Typed, as typed into.
    fw::TCellEditor* Edit(int Row, int Column) { return Legs().StartEdit(Row, ColumnOf(Column)); }
    fw::TCellEditor* Edit(int Row, int Column, const fw::Text& Typed) {
        auto* Editor = Edit(Row, Column);
        if (!Editor) return nullptr;
        Editor->KeyDown(0);
        Editor->SetEditText(Typed);
        return Legs().GetEditor();
    }

    // As the shell switches: the workstation first, then its views.
    void SetLanguage(int Language) {
        Station->SetLanguage(Language);
        View.SetLanguage(Handle, Language);
    }
    fw::Text Res(const char* Key) { return Station->Language().Resource(Key); }

    // Arguments of the entries with that key, the first of each; the log is forgotten.
    std::vector<fw::Text> TakeLogged(const char* Key) {
        std::vector<fw::Text> Result;
        for (const auto& Entry : std::exchange(Entries, {}))
            if (Entry.Key == Key) Result.push_back(Entry.Args.empty() ? fw::Text() : Entry.Args.front());
        return Result;
    }
};

}  // namespace ws
