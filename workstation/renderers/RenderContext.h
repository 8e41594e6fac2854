// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QColor>
#include <QString>

#include "framework/base/Signal.h"
#include "framework/base/Text.h"

class QWidget;

namespace fw {
class TGridTableView;
class TPopupControl;
}  // namespace fw

namespace ws {

inline constexpr double kFontPoints = 9.0;  // of the application's font at scale 100

// What renderers take from the program around them. One object for all of them; it outlives them. The callbacks may be
// left out.
class TRenderContext {
public:
    // The skin's colour of a key ("coProfit", ...), those of profit and loss as the chosen palette has them; an unknown
    // key gives the toolkit palette's text colour.
    QColor Color(const char* Key) const;
    const fw::Text& GetSkin() const { return FSkin; }
    const fw::Text& GetProfitPalette() const { return FProfitPalette; }
    void SetSkin(fw::Text Name, fw::Text ProfitPalette = {});  // redraws everything

    // The text of a resource key in the current language, %1..%9 filled in.
    QString Translate(const char* Key, const std::vector<fw::Text>& Args = {}) const;

    // The scale in per cent: the application's font, and everything that is measured by it or by Scaled. What is open
    // takes its new size on OnMetricsChanged.
    int GetScale() const { return FScale; }
    void SetScale(int PerCent);
    // Layout sizes of the models are pixels at scale 100: brought to the scale, and to a font that is higher than
    // theirs.
    int Scaled(int Pixels) const;

    // The user tried to edit a cell of an editable column and the view refused.
    std::function<void(fw::TGridTableView& View)> OnEditRefused;
    // The open editor of a cell refuses to be left, for the reason that stands at the cell.
    std::function<void(const QString& Reason)> OnEditKept;
    // Rows First to Last of a table are wanted on the clipboard; Last may be below First.
    std::function<void(fw::TGridTableView& View, int First, int Last)> OnCopyRows;
    // Lines of text are pasted into a table.
    std::function<void(fw::TGridTableView& View, const fw::Text& Lines)> OnPasteRows;
    // The widget that shows the content of a popup editor; the caller places it and owns it. Null: there is none.
    std::function<QWidget*(fw::TPopupControl& Popup, QWidget* Parent)> MakePopupContent;

    fw::TSignal<> OnSkinChanged;
    fw::TSignal<> OnMetricsChanged;

private:
    fw::Text FSkin, FProfitPalette;
    int FScale = 100;
};

}  // namespace ws
