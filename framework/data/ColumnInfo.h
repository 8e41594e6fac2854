// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

enum class EAlignment { Left, Center, Right };

// Description of one grid column. Id is the host-wide column number and becomes the column's tag.
class FRAMEWORK_API TColumnInfo : public TObject {
public:
    ~TColumnInfo() override;

    // A numeric column holds floats, is right-aligned and gets a right-aligned text editor; a new column is visible and
    // not editable. Value is a preset cell text (empty: none). The caller owns the result.
    static std::unique_ptr<TColumnInfo> AddColumn(int Id, const Text& CaptionKey, int Width, const Text& Value = {},
                                                  bool Numeric = false);

    int Id = 0;
    Text CaptionKey;
    int Width = 0;     // pixels at scale 100
    int MinWidth = 0;  // applied only when above 0
    Text Value;
    bool Numeric = false;
    bool RightAlignedText = false;
    EAlignment HeaderAlignment = EAlignment::Left;
    bool Visible = true;
    bool Editable = false;
};

// Owns its entries; kept for the process by whoever hands it to the host for good.
using TColumnInfoList = std::vector<std::unique_ptr<TColumnInfo>>;

}  // namespace fw
