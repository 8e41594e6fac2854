// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PackageLoader.h"

#include <dlfcn.h>

#include <algorithm>

#include "framework/base/Dispatch.h"
#include "framework/base/Package.h"

namespace ws {

namespace {

std::string LastError() {
    const char* Reason = dlerror();
    return Reason ? Reason : "";
}

}  // namespace

std::vector<TPackageProblem> LoadPackage(const std::filesystem::path& File) {
    std::error_code Ignored;
    if (!std::filesystem::exists(File, Ignored)) return {{"Res_PackageMissing", {File.string()}}};
    void* Library = dlopen(File.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!Library) return {{"Res_PackageNotPackage", {File.string(), LastError()}}};

    const auto Version = reinterpret_cast<decltype(&PackageFrameworkVersion)>(dlsym(Library, fw::kPackageVersionSymbol));
    const auto Initialize = reinterpret_cast<decltype(&PackageInitialize)>(dlsym(Library, fw::kPackageInitializeSymbol));
    if (!Version || !Initialize) return {{"Res_PackageNotPackage", {File.string(), LastError()}}};
    if (const std::string Built = Version(); Built != fw::kFrameworkVersion)
        return {{"Res_PackageWrongVersion", {File.string(), Built, fw::kFrameworkVersion}}};
    if (!fw::Dispatch(File.filename().string(), [&] { Initialize(); })) return {{"Res_PackageNotPackage", {File.string(), fw::kPackageInitializeSymbol}}};
    return {};
}

std::vector<TPackageProblem> LoadPackages(const std::filesystem::path& Folder) {
    std::error_code Error;
    std::vector<std::filesystem::path> Files;
    for (const auto& Entry : std::filesystem::directory_iterator(Folder, Error))
        if (Entry.path().extension() == ".so") Files.push_back(Entry.path());
    std::sort(Files.begin(), Files.end());
    if (Files.empty()) return {{"Res_PackageMissing", {Folder.string()}}};

    std::vector<TPackageProblem> Problems;
    for (const auto& File : Files) {
        auto Found = LoadPackage(File);
        std::move(Found.begin(), Found.end(), std::back_inserter(Problems));
    }
    return Problems;
}

}  // namespace ws
