// SPDX-License-Identifier: Apache-2.0
// Comma text: any text reads, what was read writes a text that reads as the same list, and so does any list of items.
// The input is taken as a comma text, and once more as items between '|'.
#include "framework/base/StringList.h"
#include "fuzz/FuzzTarget.h"

namespace {

void CheckRoundTrip(const fw::TStringList& List) {
    const fw::Text Written = List.GetCommaText();
    fw::TStringList Again{"what stood before"};
    Again.SetCommaText(Written);
    fuzz::Require(Again == List, "a written list reads as the same list");
    fuzz::Require(Again.GetCommaText() == Written, "and writes the same text");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const std::string_view Input = fuzz::AsText(Data, Size);
    fw::TStringList List;
    List.SetCommaText(Input);
    CheckRoundTrip(List);

    fw::TStringList Items;
    size_t Begin = 0;
    for (size_t End; (End = Input.find('|', Begin)) != std::string_view::npos; Begin = End + 1)
        Items.Add(fw::Text(Input.substr(Begin, End - Begin)));
    Items.Add(fw::Text(Input.substr(Begin)));
    CheckRoundTrip(Items);
    return 0;
}
