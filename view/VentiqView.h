// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/view/Frame.h"
#include "view/VentiqCaptionButtons.h"
#include "view/VentiqCellEditing.h"
#include "view/VentiqDetailGrid.h"
#include "view/VentiqLayoutData.h"
#include "view/VentiqMarketSelectors.h"
#include "view/VentiqOrderCollector.h"
#include "view/VentiqOrderPush.h"
#include "view/VentiqPayoffChart.h"
#include "view/VentiqPositionLoader.h"
#include "view/VentiqRangeInputs.h"
#include "view/VentiqResultNote.h"
#include "view/VentiqSubscriptions.h"
#include "view/VentiqSymbolCheck.h"
#include "view/VentiqSymbolEntry.h"

namespace ventiq {

// The payoff view: owns the form and its parts, builds them in the required order, wires their events and takes them
// down. The parts hold the rules; the frame exposes only what the host calls.
class TVentiqFrame : public TFrame {
public:
    // Runs the whole construction. A step that raises is undone by the destructor, and the error reaches the caller.
    TVentiqFrame();
    ~TVentiqFrame() override;

    TLayoutGroup* GetLayout() override { return &FForm.RootGroup; }
    THintController* GetHintController() override { return &FForm.HintController; }

    // Translates everything into the language manager's current language, whatever the argument says.
    bool SetLanguage(int LanguageId) override;
    bool SetGroupID(const Text& GroupId) override;
    bool GetGroupID(Text& GroupId) override;
    Text GetLayoutData() override { return FLayoutData.GetLayoutData(); }
    bool SetLayoutData(const Text& Data) override { return FLayoutData.SetLayoutData(Data); }
    bool SetCustomData(int Kind, TObject* Data) override { return FOrderPush.SetCustomData(Kind, Data); }
    TCaptionButtonList* GetViewCaptionButtons() override { return FCaptionButtons.GetList(); }
    TImageList* GetViewCaptionButtonImageList() override { return &FForm.CaptionImages; }

private:
    enum class EStage { Wired };
    explicit TVentiqFrame(EStage);  // form, parts and their wiring; calls nothing of the host

    void Build();
    void Release();

    void WireSelectors();
    void WirePositionGrid();
    void WireRangeInputs();
    void CreateDataControl();
    void FollowLookAndFeel();
    void FollowHost();

    TVentiqForm FForm;  // before the parts: they borrow it
    TVentiqContext FContext;

    TVentiqTexts FTexts{FForm};
    TVentiqConfig FConfig{FForm};
    TVentiqOrderFlags FFlags;
    TVentiqSymbolCheck FSymbolCheck{FContext};
    TVentiqSubscriptions FSubscriptions{*this};
    TVentiqCaptionButtons FCaptionButtons{FForm, *this};

    TVentiqPositionGrid FPositionGrid{FForm, FContext, FTexts, FFlags};
    TVentiqDetailGrid FDetailGrid{FForm};
    TVentiqPayoffChart FChart{FForm, FContext, FConfig, FCaptionButtons};
    TVentiqMarketSelectors FSelectors{FForm, FContext};

    TVentiqRangeInputs FRangeInputs{FForm, FContext, FPositionGrid};
    TVentiqSymbolEntry FSymbolEntry{FForm, FContext, FPositionGrid, FTexts, FFlags, FSymbolCheck, FSubscriptions};
    TVentiqCellEditing FCellEditing{FForm, FContext, FPositionGrid, FFlags};
    TVentiqPositionLoader FPositionLoader{FForm,   FContext,     FPositionGrid, FTexts,
                                          FConfig, FSymbolCheck, FSubscriptions};
    TVentiqOrderPush FOrderPush{FForm, FContext, FSelectors};
    TVentiqOrderCollector FOrderCollector{FForm, FContext, FFlags};
    TVentiqResultNote FResultNote{FForm, FContext, *this};
    TVentiqLayoutData FLayoutData{FForm, FPositionGrid, FSelectors, FCaptionButtons, *this};
};

// The unit has nothing to initialise; it only counts.
void InitializeVentiqView();
void FinalizeVentiqView();

}  // namespace ventiq
