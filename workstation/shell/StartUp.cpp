// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/StartUp.h"

#include <chrono>
#include <cstdlib>
#include <iostream>

#include <QApplication>
#include <QLocale>
#include <QMessageBox>

#include "framework/base/Clock.h"
#include "framework/base/NumberFormat.h"
#include "workstation/preferences/PreferenceTable.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Texts.h"
#include "workstation/shell/PackageLoader.h"

namespace ws {

namespace {

namespace fs = std::filesystem;

constexpr char kSampleVariable[] = "VENTIQ_SAMPLE";  // another folder of sample files

// Friday noon of the third week of a month: monthly and weekly contracts are listed.
constexpr std::chrono::sys_days kPictureDay = std::chrono::year(2026) / 11 / 20;
constexpr std::chrono::hours kPictureHour{4};

fs::path SampleFolder() {
    if (const char* Given = std::getenv(kSampleVariable); Given && *Given) return Given;
    return InstallFolder() / VENTIQ_SAMPLE_DIR;
}

int EnvironmentLanguage() {
    for (const char* Name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* Value = std::getenv(Name);
        if (!Value || !*Value) continue;
        const std::string Locale = Value;
        if (Locale.starts_with("zh_CN") || Locale.starts_with("zh_SG")) return kLanguageSimplified;
        return Locale.starts_with("zh") ? kLanguageTraditional : kLanguageEnglish;
    }
    return kLanguageEnglish;
}

// Digits and signs are the program's own; a locale whose separators it cannot read keeps the C form.
fw::TNumberFormat EnvironmentNumberFormat() {
    const QLocale Locale = QLocale::system();
    const fw::TNumberFormat Format{FromQt(Locale.decimalPoint()), FromQt(Locale.groupSeparator())};
    return fw::IsNumberFormat(Format) ? Format : fw::TNumberFormat();
}

}  // namespace

std::string StartUpText(const std::string& Key, const std::vector<std::string>& Args) {
    return TTextTable::Embedded().Sentence(Key, Args, EnvironmentLanguage());
}

TWorkstationOptions OptionsOf(const TCommandLine& Line) {
    TWorkstationOptions Options;
    Options.SampleFolder = SampleFolder();
    Options.User = Line.User;
    Options.InMemory = Line.Mode != ERunMode::Window && Line.Mode != ERunMode::Import;
    if (Line.Mode == ERunMode::Window) Options.NumberFormat = EnvironmentNumberFormat();
    if (IsOfPictures(Line.Mode)) Options.StoreFile = InstallFolder() / "no-such-store";  // the sample alone
    return Options;
}

void ApplyChoices(TWorkstation& Workstation, const TCommandLine& Line) {
    if (!Line.Language.empty()) Workstation.SetLanguage(LanguageIndexOf(Line.Language).value_or(kLanguageEnglish));
    if (!Line.Skin.empty()) Workstation.SetSkin(Line.Skin);
    if (!Line.NumberFormat.empty()) Workstation.SetNumberFormat(Line.NumberFormat);
    if (!Line.Scale.empty()) Workstation.Config().WriteString(kPlatformSection, kPreferenceScale, Line.Scale);
}

bool IsOfPictures(ERunMode Mode) { return Mode == ERunMode::Picture || Mode == ERunMode::Pictures; }

void FixPictureClock() { fw::TClock::Fix(kPictureDay + kPictureHour); }

void TellStartFailure(const std::string& Key, const std::vector<std::string>& Args, const TCommandLine& Line) {
    const std::string Text = StartUpText(Key, Args);
    std::cerr << Text << '\n';
    if (Line.Mode != ERunMode::Window || !qApp || QApplication::platformName() == QLatin1String("offscreen")) return;
    QMessageBox Box(QMessageBox::Critical, ToQt(StartUpText("Res_AppTitle", {})), ToQt(Text));
    Box.exec();
}

TLogPrinter::TLogPrinter(TWorkstation& Workstation) {
    FLink = fw::TLog::Entries().Connect([this, &Workstation](const fw::TLogEntry& Entry) {
        FSaidError |= Entry.Level == fw::ELogLevel::Error;
        if (Entry.Level != fw::ELogLevel::Info)
            std::cerr << Workstation.Language().Resource(Entry.Key, Entry.Args) << '\n';
    });
}

}  // namespace ws
