// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/PayoffFiles.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "framework/base/Numbers.h"
#include "framework/controls/Chart.h"
#include "framework/controls/GridTableView.h"
#include "framework/data/ColumnIds.h"

namespace ws {

namespace {

class TCsvFile {
public:
    explicit TCsvFile(const std::filesystem::path& File)
        : FFile(File), FStream(File, std::ios::binary | std::ios::trunc) {
        FStream << "price,pl\n";
    }
    void Row(double Price, double PL) {
        FStream << fw::FloatToShortestText(Price) << ',' << fw::FloatToShortestText(PL) << '\n';
    }
    void Close() {
        FStream.close();
        if (!FStream)
            throw std::filesystem::filesystem_error("write", FFile, std::error_code(errno, std::generic_category()));
    }

private:
    std::filesystem::path FFile;
    std::ofstream FStream;
};

}  // namespace

void WritePayoffFiles(fw::TFrame& Frame, const std::filesystem::path& Folder) {
    std::filesystem::create_directories(Folder);
    TCsvFile Table(Folder / "payoff.csv");
    if (auto* View = Frame.FindControl<fw::TGridTableView>("DetailGridView"); View && View->GetDataControl()) {
        auto& Rows = *View->GetDataControl();
        const int32_t Count = Rows.GetCount();
        for (int32_t i = 0; i < Count; ++i)
            Table.Row(Rows.GetValue(i, fw::kColumnPrice).AsFloat(), Rows.GetValue(i, fw::kColumnProfitLoss).AsFloat());
    }
    Table.Close();

    TCsvFile KeyPrices(Folder / "keyprices.csv");
    if (auto* Chart = Frame.FindControl<fw::TChart>("DataChart"); Chart && !Chart->Series().empty()) {
        const auto& Line = *Chart->Series().front();
        for (int i = 0; i < Line.GetCount(); ++i) KeyPrices.Row(Line.GetX(i), Line.GetY(i));
    }
    KeyPrices.Close();
}

}  // namespace ws
