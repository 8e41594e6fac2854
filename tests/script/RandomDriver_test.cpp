// SPDX-License-Identifier: GPL-3.0-or-later
// Ten thousand random steps at the real view, and after each of them what must always hold.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <deque>
#include <set>

#include "framework/controls/Chart.h"
#include "tests/script/RandomUser.h"

namespace ws {

namespace {

constexpr int kSteps = 10000;
constexpr size_t kShownSteps = 20;
constexpr int kMostRows = 30;  // above, the next step clears

// VENTIQ_DRIVER_SEED in the environment chooses another one.
uint64_t Seed() {
    const char* Chosen = std::getenv("VENTIQ_DRIVER_SEED");
    return Chosen ? std::strtoull(Chosen, nullptr, 10) : 20261121;
}

// The columns that hold translated texts, and all the texts that each may hold.
const struct {
    int Column;
    std::vector<const char*> Keys;
} kTranslated[] = {
    {ventiq::kColSide, {"Res_Side_Buy", "Res_Side_Sell"}},
    {ventiq::kColCallPut, {"Res_Call", "Res_Put"}},
    {ventiq::kColOpenClose, {"Res_OpenClose_N", "Res_OrderOpen", "Res_OrderClose"}},
    {ventiq::kColPrincipal, {"Res_Principal_N", "Res_Principal_C", "Res_Principal_H", "Res_Principal_RT"}},
};

}  // namespace

class TRandomDriver : public TRandomUser {
protected:
    std::deque<std::string> FLast;
    size_t FChecked = 0;  // entries of the log that were looked at

    // Rows from the first input row on have the list of sides, loaded ones have not.
    void CheckRows() {
        auto& Grid = Legs();
        const int Count = Rows(), Side = ColumnOf(ventiq::kColSide);
        ASSERT_GE(Count, 1);
        bool Input = false;
        for (int Row = 0; Row < Count; ++Row) {
            const bool IsInput = Grid.GetCellProperties(Row, Side) != nullptr;
            ASSERT_TRUE(IsInput || !Input) << "a loaded row below an input row, at " << Row;
            Input = IsInput;
        }
        ASSERT_TRUE(Input) << "no input row";
        ASSERT_EQ(fw::Trim(CellOf(Count - 1, ventiq::kColSymbol).AsText()), "") << "no empty row follows the legs";
        ASSERT_LT(Grid.GetFocusedRecord(), Count);
        if (const auto* Editor = Grid.GetEditor()) {
            ASSERT_EQ(Editor->GetRecord(), Grid.GetFocusedRecord()) << "an editor where the focus is not";
        }
    }
    void CheckTexts() {
        const TGridCells Grid = Cells();
        for (const auto& [Id, Keys] : kTranslated) {
            std::set<fw::Text> Texts{""};
            for (const char* Key : Keys) Texts.insert(Res(Key));
            const auto Column = static_cast<size_t>(ColumnOf(Id));
            for (size_t Row = 0; Row < Grid.size(); ++Row)
                ASSERT_TRUE(Texts.contains(Grid[Row][Column].AsText()))
                    << testing::PrintToString(Grid[Row][Column]) << " at " << Row << "/" << Id
                    << " is no text of language " << Station->Language().GetLanguage();
        }
    }
    void CheckValues() {
        for (const int Id : {ventiq::kColPremium, ventiq::kColQty, ventiq::kColStrike}) {
            const int Column = ColumnOf(Id);
            for (int Row = 0; Row < Rows(); ++Row) {
                const fw::Variant Cell = Legs().GetDataController().GetValue(Row, Column);
                ASSERT_TRUE(!Cell.IsText() && std::isfinite(Cell.AsFloat())) << Row << "/" << Id;
                ASSERT_TRUE(Id != ventiq::kColQty || (Cell.AsFloat() >= 0 && Cell.AsFloat() <= 2e9)) << Cell.AsFloat();
                ASSERT_EQ(Cell.IsNull(), Legs().GetCellText(Row, Column).empty()) << Row << "/" << Id;
            }
        }
        for (const auto* Line : Frame().FindControl<fw::TChart>("DataChart")->Series())
            for (int i = 0; i < Line->GetCount(); ++i)
                ASSERT_TRUE(std::isfinite(Line->GetX(i)) && std::isfinite(Line->GetY(i)));
    }
    void CheckSymbols() {
        auto& Editors = fw::TEditorManager::GetInstance();
        const auto Column = static_cast<size_t>(ColumnOf(ventiq::kColSymbol));
        for (const auto& Row : Cells())
            ASSERT_EQ(Editors.GetConvertSymbol(Row[Column].AsText()), fw::Trim(Row[Column].AsText()));
    }
    // An expiry that is no date raises, by rule; nothing else may.
    void CheckLog() {
        for (; FChecked < Entries.size(); ++FChecked) {
            const auto& Entry = Entries[FChecked];
            const bool NoDate = Entry.Args.size() == 2 && Entry.Args[1] == "'none' is not a valid date";
            ASSERT_TRUE(Entry.Level != fw::ELogLevel::Error || NoDate)
                << Station->Language().Resource(Entry.Key, Entry.Args);
            ASSERT_NE(Res(Entry.Key.c_str()), Entry.Key) << "a message without a text";
        }
    }
    bool Check() {
        for (const auto Rule : {&TRandomDriver::CheckRows, &TRandomDriver::CheckTexts, &TRandomDriver::CheckValues,
                                &TRandomDriver::CheckSymbols, &TRandomDriver::CheckLog})
            if (!HasFatalFailure()) (this->*Rule)();
        return !HasFatalFailure();
    }
    std::string History(int Number) const {
        std::string Text = "seed " + std::to_string(Seed()) + ", step " + std::to_string(Number) + "; the last steps:";
        for (const auto& Line : FLast) Text += "\n  " + Line;
        return Text;
    }
};

TEST_F(TRandomDriver, TenThousandStepsLeaveNothingBroken) {
    Random.seed(Seed());
    OpenWithPopup("trader");
    Entries.clear();
    for (int Number = 1; Number <= kSteps; ++Number) {
        std::string Done = "clear";
        ASSERT_NO_THROW(Rows() > kMostRows ? void(Play(TStep::Click("btnClear"))) : void(Done = Step()))
            << History(Number);
        FLast.push_back(std::to_string(Number) + ": " + Done);
        if (FLast.size() > kShownSteps) FLast.pop_front();
        ASSERT_TRUE(Check()) << History(Number);
    }
    CloseWithPopup();
    EXPECT_FALSE(Station->HasOwners()) << "a registration or a subscription is left";
}

}  // namespace ws
