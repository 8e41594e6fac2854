// SPDX-License-Identifier: Apache-2.0
#include "registration/VentiqInterface.h"

#include <array>

#include "framework/base/ClassRegistry.h"
#include "framework/services/UserAppProfile.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqTexts.h"
#include "view/VentiqView.h"

namespace ventiq {

namespace {

struct TMenuLevel {
    int Id;
    int Index;
    const char* Caption;  // resource key
};

constexpr std::array<TMenuLevel, kMenuLevels> kMenu{{
    {kMenuIdAccount, kMenuIndexAccount, "Res_Account"},
    {kViewId, kMenuIndexView, "Res_Ventiq"},
}};
constexpr TMenuLevel kNoLevel{0, -1, ""};

const TMenuLevel& LevelAt(int Level) {
    return Level >= 0 && Level < kMenuLevels ? kMenu[static_cast<size_t>(Level)] : kNoLevel;
}

TUnitCounter UnitCounter;

}  // namespace

TIVentiq::TIVentiq() = default;
TIVentiq::~TIVentiq() = default;

Text TIVentiq::GetName() { return FormatText(kViewNameFormat, {std::to_string(GetViewID())}); }
int TIVentiq::GetViewID() { return kViewId; }
int TIVentiq::GetMenuLevel() { return kMenuLevels; }
int TIVentiq::GetMenuIndex(int Level) { return LevelAt(Level).Index; }
int TIVentiq::GetMenuID(int Level) { return LevelAt(Level).Id; }
Text TIVentiq::GetMenuCaption(int Level) { return GetResourceHeader(LevelAt(Level).Caption); }
int TIVentiq::GetMenuGroupIndex(int) { return 0; }
bool TIVentiq::GetIsVisible() { return TCustomUserAppProfile::GetInstance().IsFunctionEnabled(kFunctionPayOff); }

int64_t TIVentiq::OpenNewInstance() {
    auto Frame = std::make_unique<TVentiqFrame>();
    const int64_t Handle = Frame->GetHandle();
    AddView(std::move(Frame));
    return Handle;
}

bool TIVentiq::GetDefaultSize(int& Width, int& Height) {
    Width = kDefaultWidth;
    Height = kDefaultHeight;
    return true;
}

bool TIVentiq::GetDefaultCaption(Text& Caption) {
    Caption = GetResourceHeader("Res_Ventiq");
    return true;
}

void InitializeVentiqInterface() {
    if (UnitCounter.Enter()) TClassRegistry::RegisterClass("TIVentiq", [] { return std::make_unique<TIVentiq>(); });
}

void FinalizeVentiqInterface() { UnitCounter.Leave(); }

}  // namespace ventiq
