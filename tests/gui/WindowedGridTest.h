// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <set>

#include "framework/data/ColumnIds.h"
#include "tests/support/FakeHost.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace gui {

inline constexpr int32_t kMostRows = 2147483647;
inline constexpr int kTableColumns = 2;

// Any number of rows, and which of them it was asked for.
class TCountedRows : public fw::TCustomDataControl {
public:
    int32_t Count = 0;
    int Texts = 0, Values = 0;
    std::set<int32_t> Rows;

    void Forget() { Texts = Values = 0, Rows.clear(); }
    int32_t GetCount() override { return Count; }
    fw::Variant GetValue(int32_t Record, int32_t) override {
        ++Values, Rows.insert(Record);
        return Record % 3 - 1.0;
    }
    fw::Text GetDisplayValue(int32_t Record, int32_t) override {
        ++Texts, Rows.insert(Record);
        return std::to_string(Record);
    }
};

// A table over counted rows, in a window of its own: a column of prices and one of profit and loss.
class TOpenTable {
public:
    TOpenTable() {
        View.Options.ColumnAutoWidth = View.Options.CellEndEllipsis = true;
        for (const int Tag : {fw::kColumnPrice, fw::kColumnProfitLoss}) {
            fw::TGridColumn& Column = View.CreateColumn();
            Column.Tag = Tag;
            Column.ValueType = fw::EValueType::Float;
            Column.SetWidth(50);
        }
        View.SetCustomDataSource(&Source);
        Context.SetSkin("Light");
    }
    explicit TOpenTable(int32_t Count) : TOpenTable() { Open(Count); }

    void Open(int32_t Count) {
        Data().Count = Count;
        Data().Forget();
        Widget = std::make_unique<ws::TWindowedGridRenderer>(View, Context, nullptr);
        Widget->resize(300, 600);
        Widget->show();
        Widget->activateWindow();
        Widget->setFocus();
        Paint();
    }
    void Fill(int32_t Count) {
        Data().Count = Count;
        Data().NotifyDataChanged();
        Paint();
    }
    // Everything that waits to be painted; the window has been shown and is on the screen.
    static void Paint() { QTest::qWait(1); }
    void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
        QTest::keyClick(Widget.get(), Key, Modifiers);
        Paint();
    }
    void Scroll(int Row) {
        Bar().setValue(Row);
        Paint();
    }
    TCountedRows& Data() { return static_cast<TCountedRows&>(*Source.GetDataControl()); }
    QScrollBar& Bar() { return *Widget->verticalScrollBar(); }
    fw::TGridSelection& Selection() { return View.GetSelection(); }
    bool HasRowsOfWholeDots() const {
        const double Dots = Widget->CellRect(Widget->GetTopRow(), 0).height() * Widget->devicePixelRatio();
        return Dots == std::round(Dots);
    }
    int SeenRows() const { return static_cast<int>(Widget->SeenRows().size()); }

    ws::TRenderContext Context;
    fw::TGridTableView View;
    fw::TCustomGridDataSource Source{[] { return std::make_unique<TCountedRows>(); }};
    std::unique_ptr<ws::TWindowedGridRenderer> Widget;
};

}  // namespace gui
