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

// What renderers take from the program around them. One object for all of them; it outlives them. The callbacks may be
// left out.
class TRenderContext {
public:
    // The skin's colour of a key ("coProfit", ...); an unknown key gives the palette's text colour.
    QColor Color(const char* Key) const;
    const fw::Text& GetSkin() const { return FSkin; }
    void SetSkin(fw::Text Name);  // redraws everything

    // The text of a resource key in the current language, %1..%9 filled in.
    QString Translate(const char* Key, const std::vector<fw::Text>& Args = {}) const;

    // Layout sizes of the models are pixels at scale 100: brought to the size of the application's font.
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

private:
    fw::Text FSkin;
};

}  // namespace ws
