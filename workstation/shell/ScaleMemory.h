// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include <QByteArray>
#include <QSize>

class QMainWindow;

namespace ws {

// A larger scale may make the window grow and its docks share the room anew. Going back brings back what stood there,
// unless the user has resized the window or moved docks meanwhile.
class TScaleMemory {
public:
    explicit TScaleMemory(QMainWindow& Window) : FWindow(Window) {}

    void Leave(int Scale);   // before the scale changes
    void Arrive(int Scale);  // after; acts when the layouts have settled

private:
    struct TPlaces {
        QSize Window;
        QByteArray Docks;
        bool operator==(const TPlaces&) const = default;
    };
    TPlaces Now() const;
    void Restore(const TPlaces& Places);

    QMainWindow& FWindow;  // borrowed
    std::map<int, TPlaces> FPlaces;
    TPlaces FSettled;  // as the last change left it
};

}  // namespace ws
