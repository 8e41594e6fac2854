// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PackageLoader.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "framework/base/Log.h"
#include "framework/base/Package.h"
#include "workstation/store/Store.h"

namespace ws {

namespace {

namespace fs = std::filesystem;

constexpr char kPackagesVariable[] = "VENTIQ_PACKAGES";  // a folder in place of the user's own

using TVersionFunction = const char* (*)();
using TInitializeFunction = void (*)();

// The loader's own words name the file again: it is cut off.
std::string LoaderReason(const fs::path& File) {
    const char* Said = dlerror();
    std::string Reason = Said ? Said : "";
    const std::string Prefix = File.string() + ": ";
    return Reason.starts_with(Prefix) ? Reason.substr(Prefix.size()) : Reason;
}

template <class T>
T Symbol(void* Library, const char* Name) {
    return reinterpret_cast<T>(dlsym(Library, Name));
}

bool Refuse(const char* Key, std::vector<fw::Text> Args) {
    fw::TLog::Error(Key, std::move(Args));
    return false;
}

// Outcome of the version check; the library stays loaded in every case, for its objects may be in use already.
bool HasOurVersion(void* Library, const fs::path& File) {
    const auto Version = Symbol<TVersionFunction>(Library, fw::kPackageVersionSymbol);
    if (!Version || !Symbol<TInitializeFunction>(Library, fw::kPackageInitializeSymbol))
        return Refuse("Res_PackageNotPackage", {File.string(), LoaderReason(File)});
    const char* Said = Version();
    if (Said && std::string(Said) == fw::kFrameworkVersion) return true;
    return Refuse("Res_PackageWrongVersion", {File.string(), Said ? Said : "", fw::kFrameworkVersion});
}

std::vector<fs::path> PackagesIn(const fs::path& Folder) {
    std::vector<fs::path> Files;
    std::error_code Failed;
    for (const auto& Entry : fs::directory_iterator(Folder, Failed))
        if (Entry.path().extension() == ".so") Files.push_back(Entry.path());
    std::sort(Files.begin(), Files.end());
    return Files;
}

int LoadEach(const std::vector<fs::path>& Files) {
    return static_cast<int>(std::count_if(Files.begin(), Files.end(), LoadPackage));
}

}  // namespace

bool LoadPackage(const fs::path& File) {
    static std::set<void*> Initialised;
    std::error_code Ignored;
    if (!fs::exists(File, Ignored)) return Refuse("Res_PackageMissing", {File.string()});
    dlerror();
    void* Library = dlopen(File.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!Library) return Refuse("Res_PackageNotPackage", {File.string(), LoaderReason(File)});
    if (Initialised.contains(Library)) return true;
    if (!HasOurVersion(Library, File)) return false;
    try {
        Symbol<TInitializeFunction>(Library, fw::kPackageInitializeSymbol)();
    } catch (const std::exception& Error) {
        return Refuse("Res_PackageFailed", {File.string(), Error.what()});
    } catch (...) {
        return Refuse("Res_PackageFailed", {File.string(), ""});
    }
    Initialised.insert(Library);
    return true;
}

int LoadPackages(const fs::path& Folder) {
    const auto Files = PackagesIn(Folder);
    if (Files.empty()) Refuse("Res_PackageMissing", {(Folder / "*.so").string()});
    return LoadEach(Files);
}

int LoadPackages() {
    const int Installed = LoadPackages(InstallFolder() / VENTIQ_PACKAGE_DIR);
    if (const char* Given = std::getenv(kPackagesVariable); Given && *Given) return Installed + LoadPackages(Given);
    return Installed + LoadEach(PackagesIn(DefaultStorePath().parent_path() / "packages"));
}

fs::path InstallFolder() {
    std::error_code Failed;
    const fs::path Program = fs::read_symlink("/proc/self/exe", Failed);
    return Failed ? fs::current_path() : Program.parent_path().parent_path();
}

}  // namespace ws
