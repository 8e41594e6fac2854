# SPDX-License-Identifier: Apache-2.0
. "$(dirname "${BASH_SOURCE[0]}")/planting.sh"

table=workstation/resources/texts.csv
head='tag,key,en,zh-Hant,zh-Hans'
good='ResourceString,Res_Buy,Buy %1,"買入, %1",买入 %1
ResourceString,Res_Level_Info,i,i,i
Message,DC00000001,"two
lines",兩行,两行'
plant $table <<<"$head
$good"
plant view/A.cpp <<<'// "Res_OnlyInAComment"
const char* A = "Res_Buy"; auto B = "Res_Level_" + Name; const char* C = "DC00000001";  // not "Res_Sold"
const char* D = "file://x"; int E = '\''"'\''; Hint("Res_Buy");
label->setText(QString()); view->setText("%1"); box.setTitle(tr("Res_Buy")); spin.setText("-");'
sound texts

breach texts view/B.cpp 'B.cpp:2: Res_Sell is not in' <<<'
Caption("Res_Sell");'
breach texts view/B.cpp 'DC00000002 is not in' <<<'ShowMessageCode(nullptr, "DC00000002");'
breach texts view/B.cpp 'no key of .* begins with Res_Side_' <<<'Key = "Res_Side_" + Name;'
breach texts workstation/shell/B.cpp 'a user sees stands in the source: "Open"' <<<'action->setText("Open");'
breach texts workstation/shell/B.cpp 'a user sees' <<<'auto* a = menu->addAction(tr("&Open"));'
breach texts workstation/shell/B.cpp 'a user sees' <<<'new QLabel(QStringLiteral("價格"), this);'
breach texts framework/B.h 'a user sees' <<<'Item.SetCaption("Price");'
breach texts $table 'Res_Sell is named by no source' <<<"$head
$good
ResourceString,Res_Sell,Sell,沽出,卖出"
breach texts $table ':3: Res_Level_Info has no text' <<<"$head
ResourceString,Res_Buy,Buy,買入,买入
ResourceString,Res_Level_Info,i, ,i
Message,DC00000001,a,b,c"
breach texts $table ':2: Res_Buy has other placeholders' <<<"$head
ResourceString,Res_Buy,Buy %1 %2,買入 %2 %1,买入 %1
ResourceString,Res_Level_Info,i,i,i
Message,DC00000001,a,b,c"
breach texts $table 'Res_Buy stands twice' <<<"$head
$good
ResourceString,Res_Buy,Buy,買入,买入"
breach texts $table ':6: Res_Call: a row has five fields' <<<"$head
$good
ResourceString,Res_Call,Call,認購"
all_noticed texts
