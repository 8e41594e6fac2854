// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>

#include "framework/services/EditorManager.h"
#include "framework/services/Formatter.h"
#include "framework/services/ListComparers.h"
#include "framework/services/MessageBoxCtrl.h"
#include "tests/support/Journal.h"

namespace support {

// Host behaviour behind editors: registering enables an editor, removing disables it; a saved account becomes text and
// hint and fires the exit. Symbols convert to upper case unless a test sets Convert.
class TFakeEditorManager : public fw::TEditorManager {
public:
    explicit TFakeEditorManager(TJournal& Journal) : FJournal(Journal) {}
    std::function<fw::Text(const fw::Text&)> Convert = [](const fw::Text& Typed) { return fw::UpperCase(Typed); };
    fw::Text ColumnLayout;        // what GetGridColumnLayout answers
    std::set<fw::Text> Accounts;  // accounts the user may use; empty: any
    bool IsRegistered(const fw::TPopupEdit* Editor) const { return FEditors.contains(Editor); }

    void RegisterAccountEditor(fw::TPopupEdit* Editor, const fw::Text& GroupId, bool Flag1, bool Flag2) override;
    void RemoveAccountEditor(fw::TPopupEdit* Editor) override;
    void SetAccountLayoutAccount(fw::TPopupEdit* Editor, const fw::Text& Account) override;
    fw::Text GetConvertSymbol(const fw::Text& Typed) override;
    fw::Text GetGridColumnLayout(fw::TGridTableView* View, const fw::TColumnInfoList* Columns) override;
    void SetGridColumnLayout(fw::TGridTableView* View, const fw::Text& Layout,
                             const fw::TColumnInfoList* Columns) override;

private:
    TJournal& FJournal;
    std::set<const fw::TPopupEdit*> FEditors;
};

// Messages shown so far, in order; a test clears the list when it has read it.
class TFakeMessageBoxCtrl : public fw::TCustomMessageBoxCtrl {
public:
    struct TMessage {
        fw::Text Message, Code;  // one of the two
        friend bool operator==(const TMessage&, const TMessage&) = default;
    };
    explicit TFakeMessageBoxCtrl(TJournal& Journal) : FJournal(Journal) {}
    std::vector<TMessage> Messages;
    std::function<void()> OnShow;  // while the box is open

    void ShowMessageText(fw::TObject* Owner, const fw::Text& Message, int Kind, int Buttons, int Default) override;
    void ShowMessageCode(fw::TObject* Owner, const fw::Text& Code, void* Reserved1, void* Reserved2,
                         void* Reserved3) override;

private:
    TJournal& FJournal;
};

// Writes any number as its shortest text behind the kind: "1:23.45", "3:-400"; FormatPrice the same. Records every
// call.
class TFakeFormatter : public fw::TCustomFormatter {
public:
    struct TCall {
        double Value;
        int Kind;
        fw::Text Symbol;
        bool UseDefault;
        friend bool operator==(const TCall&, const TCall&) = default;
    };
    std::vector<TCall> Calls;

    fw::Text FormatValue(double Value, uint8_t Kind, const fw::Text& Symbol, bool UseDefault, void* Extra) override;
    fw::Text FormatPrice(double Value, uint8_t Kind, bool UseDefault) override;
};

// Keeps the host's own order unless Sorted is set. Counts calls, null lists too.
class TFakeExchangeListComparer : public fw::TCustomExchangeListComparer {
public:
    explicit TFakeExchangeListComparer(TJournal& Journal) : FJournal(Journal) {}
    int SortCount = 0, NullCount = 0;
    bool Sorted = false;
    void Sort(fw::TStringList* List) override;

private:
    TJournal& FJournal;
};

class TFakeSeriesComparer : public fw::TCustomSeriesComparer {
public:
    explicit TFakeSeriesComparer(TJournal& Journal) : FJournal(Journal) {}
    int SortCount = 0;
    bool Sorted = false;
    void Sort(const fw::Text& Exchange, fw::TStringList* List) override;

private:
    TJournal& FJournal;
};

}  // namespace support
