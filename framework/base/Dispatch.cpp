// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Dispatch.h"

#include <cxxabi.h>

#include <cstdlib>
#include <exception>
#include <memory>
#include <typeinfo>

#include "framework/base/Log.h"

namespace fw {

namespace {

// Name of the type of what is being handled; for thrown objects that are no std::exception.
Text CurrentExceptionType() {
    const std::type_info* Type = abi::__cxa_current_exception_type();
    if (!Type) return {};
    int Status = 0;
    const std::unique_ptr<char, void (*)(void*)> Name(abi::__cxa_demangle(Type->name(), nullptr, nullptr, &Status),
                                                      std::free);
    return Status == 0 && Name ? Text(Name.get()) : Text(Type->name());
}

// Called while an exception is being handled.
Text CurrentExceptionText() {
    try {
        throw;
    } catch (const std::exception& E) {
        return E.what();
    } catch (...) {
        return CurrentExceptionType();
    }
}

}  // namespace

bool Dispatch(std::string_view Where, const std::function<void()>& Body) noexcept {
    try {
        Body();
        return true;
    } catch (...) {
        // A listener of the log that throws, or no memory for the line: the call still ends quietly.
        try {
            TLog::Error("Res_LogHandlerFailed", {Text(Where), CurrentExceptionText()});
        } catch (...) {
        }
        return false;
    }
}

}  // namespace fw
