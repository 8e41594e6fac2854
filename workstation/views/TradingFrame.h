// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>

#include "framework/controls/GridTableView.h"
#include "framework/view/Frame.h"
#include "workstation/views/TradingDesk.h"

namespace ws {

// A live, sortable table of the workstation's own. What happens between two ticks of the shared timer is shown once.
class TTradingFrame : public fw::TFrame {
public:
    ~TTradingFrame() override;

    fw::TLayoutGroup* GetLayout() override { return &FRoot; }
    bool SetLanguage(int LanguageId) override;

protected:
    struct TColumn {
        int Id;
        const char* CaptionKey;
        int Width;  // pixels at scale 100
        bool Numeric = false;
    };
    enum class EInk { Plain, Buy, Sell, Good, Bad, Warning, Quiet, Used };
    static constexpr size_t kInks = 8;

    TTradingFrame(TTradingDesk& Desk, const char* GridName, const char* NoDataKey);

    // To be called by the derived class once it stands.
    void Show(const fw::TCustomGridDataSource::TFactory& Data, std::span<const TColumn> Columns);
    void ShowColumns(std::span<const TColumn> Columns);
    void Changed() { FChanged = true; }
    fw::Text Resource(const char* Key) const { return FDesk.Language.Resource(Key); }

    virtual void Refresh() = 0;  // something has changed
    virtual EInk InkOf(int DataRecord, int Column) = 0;
    virtual fw::Text HintOf(int DataRecord, int Column, const fw::Text& Shown) = 0;
    virtual void Translate() {}

    TTradingDesk& FDesk;  // borrowed
    fw::TGridTableView FView;
    fw::TLayoutGroup FRoot{fw::EDirection::Vertical};

private:
    void TakeSkin();
    void TranslateColumns();

    const char* FNoDataKey;
    fw::TLayoutItem FGridItem{&FView};
    std::unique_ptr<fw::TCustomGridDataSource> FSource;
    std::vector<const char*> FCaptionKeys;
    std::array<fw::TStyle, kInks> FStyles;
    bool FChanged = false;
};

// The moment on this machine's wall clock, with the day where it is not today's. Milliseconds since 1970, UTC.
fw::Text WallTime(int64_t Time);

}  // namespace ws
