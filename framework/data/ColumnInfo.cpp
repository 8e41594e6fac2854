// SPDX-License-Identifier: Apache-2.0
#include "framework/data/ColumnInfo.h"

namespace fw {

TColumnInfo::~TColumnInfo() = default;

std::unique_ptr<TColumnInfo> TColumnInfo::AddColumn(int Id, const Text& CaptionKey, int Width, const Text& Value,
                                                    bool Numeric) {
    auto Info = std::make_unique<TColumnInfo>();
    Info->Id = Id;
    Info->CaptionKey = CaptionKey;
    Info->Width = Width;
    Info->Value = Value;
    Info->Numeric = Numeric;
    Info->RightAlignedText = Numeric;
    Info->HeaderAlignment = Numeric ? EAlignment::Right : EAlignment::Left;
    return Info;
}

}  // namespace fw
