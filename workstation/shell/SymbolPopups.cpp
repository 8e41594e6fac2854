// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/SymbolPopups.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

#include "framework/base/Dispatch.h"
#include "framework/services/MarketAdapter.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TListedSymbol {
    fw::Text Symbol;
    QString Shown;
};

std::vector<TListedSymbol> EveryListedSymbol() {
    std::vector<TListedSymbol> Result;
    auto& Market = fw::TCustomMarketAdapter::GetInstance();
    for (int e = 0; e < Market.GetExchangeCount(); ++e) {
        const fw::Text Exchange = Market.GetExchangeCode(e);
        for (int s = 0; s < Market.GetSeriesCount(Exchange); ++s) {
            const fw::Text Series = Market.GetSeriesCode(Exchange, s);
            for (int p = 0; p < Market.GetProductCount(Exchange, Series); ++p) {
                const fw::TCustomProduct* Product = Market.GetProduct(Exchange, Series, p);
                if (!Product) continue;
                const QStringList Words{ToQt(Product->GetSymbol()),
                                        ToQt(Product->GetExpiryDate()),
                                        ToQt(Product->GetStrikePrice()),
                                        ToQt(Product->GetCallPutCode()),
                                        ToQt(Exchange),
                                        ToQt(Series)};
                Result.push_back({Product->GetSymbol(), Words.join(QStringLiteral("  "))});
            }
        }
    }
    return Result;
}

// Rows are the symbols that hold every word of the filter.
class TSymbolList : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    int rowCount(const QModelIndex& Parent = {}) const override {
        return Parent.isValid() ? 0 : static_cast<int>(FShown.size());
    }
    QVariant data(const QModelIndex& Index, int Role) const override {
        return Role == Qt::DisplayRole ? QVariant(FAll[FShown[static_cast<size_t>(Index.row())]].Shown) : QVariant();
    }
    fw::Text SymbolAt(int Row) const { return FAll[FShown[static_cast<size_t>(Row)]].Symbol; }
    void Filter(const QString& Text) {
        const QStringList Words = Text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        beginResetModel();
        FShown.clear();
        for (size_t i = 0; i < FAll.size(); ++i)
            if (std::all_of(Words.begin(), Words.end(),
                            [&](const QString& W) { return FAll[i].Shown.contains(W, Qt::CaseInsensitive); }))
                FShown.push_back(i);
        endResetModel();
    }

private:
    std::vector<TListedSymbol> FAll = EveryListedSymbol();
    std::vector<size_t> FShown;
};

class TChosenSymbol : public fw::TCustomMarketData {
public:
    explicit TChosenSymbol(fw::Text Symbol) : FSymbol(std::move(Symbol)) {}
    fw::Text GetSymbol() const override { return FSymbol; }

private:
    fw::Text FSymbol;
};

class TSymbolChooser : public QWidget {
public:
    TSymbolChooser(const TRenderContext& Context, QWidget* Parent, std::function<void(const fw::Text&)> OnChosen)
        : QWidget(Parent),
          FSearch(new QLineEdit(this)),
          FView(new QListView(this)),
          FList(new TSymbolList(this)),
          FOnChosen(std::move(OnChosen)) {
        auto* Box = new QVBoxLayout(this);
        Box->setContentsMargins(4, 4, 4, 4);
        Box->addWidget(FSearch);
        Box->addWidget(FView, 1);
        FSearch->setPlaceholderText(Context.Translate("Res_SearchSymbol"));
        FSearch->setClearButtonEnabled(true);
        FView->setModel(FList);
        FView->setUniformItemSizes(true);
        FView->setEditTriggers(QAbstractItemView::NoEditTriggers);
        setFocusProxy(FSearch);
        FSearch->installEventFilter(this);
        connect(FSearch, &QLineEdit::textChanged, this, [this](const QString& Text) { Show(Text); });
        connect(FView, &QListView::clicked, this, [this](const QModelIndex& Row) { Choose(Row); });
        connect(FView, &QListView::activated, this, [this](const QModelIndex& Row) { Choose(Row); });
        Show({});
    }

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override {
        if (Event->type() != QEvent::KeyPress) return QWidget::eventFilter(Watched, Event);
        const int Key = static_cast<QKeyEvent*>(Event)->key();
        if (Key == Qt::Key_Return || Key == Qt::Key_Enter) return Choose(FView->currentIndex()), true;
        if (Key != Qt::Key_Up && Key != Qt::Key_Down) return QWidget::eventFilter(Watched, Event);
        const int Row = FView->currentIndex().row() + (Key == Qt::Key_Up ? -1 : 1);
        if (Row >= 0 && Row < FList->rowCount()) FView->setCurrentIndex(FList->index(Row));
        return true;
    }

private:
    void Show(const QString& Text) {
        FList->Filter(Text);
        if (FList->rowCount() > 0) FView->setCurrentIndex(FList->index(0));
    }
    void Choose(const QModelIndex& Row) {
        if (Row.isValid()) FOnChosen(FList->SymbolAt(Row.row()));
    }

    QLineEdit* FSearch;
    QListView* FView;
    TSymbolList* FList;
    std::function<void(const fw::Text&)> FOnChosen;
};

}  // namespace

TSymbolPopups::TSymbolPopups(TRenderContext& Context) : FContext(Context) {
    fw::TCustomGlobalChannelManager::GetInstance().Subscribe(
        fw::kChannelSymbolPopup, [this](fw::TObject*, fw::TObject* Record) { Serve(Record); }, this);
}

TSymbolPopups::~TSymbolPopups() {
    fw::TCustomGlobalChannelManager::GetInstance().Unsubscribe(fw::kChannelSymbolPopup, this);
}

void TSymbolPopups::Serve(fw::TObject* Record) {
    auto* Request = dynamic_cast<fw::TPopupRequestRecord*>(Record);
    if (!Request) return;
    FPopups.push_back(std::make_unique<TPopup>());
    FPopups.back()->Owner = Request->Owner;
    FPopups.back()->OnSelected = Request->OnSelected;
    Request->Control = FPopups.back().get();
}

QWidget* TSymbolPopups::MakeContent(fw::TPopupControl& Popup, QWidget* Parent) {
    for (const auto& Each : FPopups) {
        if (Each.get() != &Popup) continue;
        TPopup* Known = Each.get();
        return new TSymbolChooser(FContext, Parent, [this, Known](const fw::Text& Symbol) {
            TChosenSymbol Chosen(Symbol);
            const auto Receiver = Known->OnSelected;
            if (Receiver) fw::Dispatch("symbol popup", [&] { Receiver(this, &Chosen); });
            Known->Hide();
        });
    }
    return nullptr;
}

void TSymbolPopups::Forget(const fw::TObject& Owner) {
    for (const auto& Each : FPopups)
        if (Each->Owner == &Owner) Each->OnSelected = nullptr;
}

}  // namespace ws
