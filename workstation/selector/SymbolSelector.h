// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "workstation/selector/ChainView.h"

namespace ws {

// The symbol selector as it stands in a popup: what is typed filters the chain below, the arrows move over it, Enter
// and a double click choose. The symbol is told once.
class TSymbolSelector : public QWidget {
public:
    using TChosen = std::function<void(const fw::Text& Symbol)>;
    TSymbolSelector(TRenderContext& Context, TChainSelector::TUnderlying Underlying, TChosen OnChosen, QWidget* Parent);

    void Retranslate();

    TChainSelector& Model() { return FModel; }
    QLineEdit& Search() { return *FSearch; }
    TChainView& View() { return *FView; }
    QString Footer() const { return FFooter->text(); }

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void paintEvent(QPaintEvent*) override;

private:
    bool KeyPressed(int Key, Qt::KeyboardModifiers Modifiers);
    void ShowFooter();
    void Take();

    TRenderContext& FContext;
    TChosen FOnChosen;
    TChainSelector FModel;
    QLineEdit* FSearch;
    TChainView* FView;
    QLabel* FFooter;
    QTimer FAgeTimer;
    fw::TConnections FLinks;
};

}  // namespace ws
