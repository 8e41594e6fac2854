// SPDX-License-Identifier: Apache-2.0
#include "framework/base/ClassRegistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fw {
namespace {

class TFirst : public TObject {};
class TSecond : public TObject {};

template <class T>
std::unique_ptr<TObject> Make() {
    return std::make_unique<T>();
}

TEST(ClassRegistry, CreatesByName) {
    EXPECT_TRUE(TClassRegistry::RegisterClass("registry.created", Make<TFirst>));
    const auto Object = TClassRegistry::Create("registry.created");
    EXPECT_NE(dynamic_cast<TFirst*>(Object.get()), nullptr);
    EXPECT_NE(Object, TClassRegistry::Create("registry.created")) << "each call makes a new object";
}

TEST(ClassRegistry, UnknownNameGivesNothing) { EXPECT_EQ(TClassRegistry::Create("registry.unknown"), nullptr); }

TEST(ClassRegistry, EmptyFactoryGivesNothing) {
    EXPECT_TRUE(TClassRegistry::RegisterClass("registry.empty", nullptr));
    EXPECT_EQ(TClassRegistry::Create("registry.empty"), nullptr);
}

TEST(ClassRegistry, SecondRegistrationOfANameChangesNothing) {
    EXPECT_TRUE(TClassRegistry::RegisterClass("registry.twice", Make<TFirst>));
    const auto Before = TClassRegistry::ClassNames();
    EXPECT_FALSE(TClassRegistry::RegisterClass("registry.twice", Make<TSecond>));
    EXPECT_EQ(TClassRegistry::ClassNames(), Before);
    EXPECT_NE(dynamic_cast<TFirst*>(TClassRegistry::Create("registry.twice").get()), nullptr);
}

TEST(ClassRegistry, NamesStandInOrderOfRegistration) {
    const size_t Before = TClassRegistry::ClassNames().size();
    TClassRegistry::RegisterClass("registry.z", Make<TFirst>);
    TClassRegistry::RegisterClass("registry.a", Make<TFirst>);
    auto Names = TClassRegistry::ClassNames();
    Names.erase(Names.begin(), Names.begin() + static_cast<std::ptrdiff_t>(Before));
    EXPECT_THAT(Names, testing::ElementsAre("registry.z", "registry.a"));
}

TEST(ClassRegistry, FactoryMayRegisterFurtherClasses) {
    TClassRegistry::RegisterClass("registry.parent", [Label = Text(100, 'x')]() -> std::unique_ptr<TObject> {
        for (int I = 0; I < 100; ++I)
            TClassRegistry::RegisterClass("registry.child" + std::to_string(I), Make<TSecond>);
        return Label.size() == 100 ? Make<TFirst>() : nullptr;
    });
    EXPECT_NE(TClassRegistry::Create("registry.parent"), nullptr);
    EXPECT_NE(TClassRegistry::Create("registry.child99"), nullptr);
}

TEST(ClassRegistry, ErrorOfAFactoryReachesTheCaller) {
    TClassRegistry::RegisterClass("registry.raises", []() -> std::unique_ptr<TObject> { throw 5; });
    EXPECT_THROW(TClassRegistry::Create("registry.raises"), int);
}

}  // namespace
}  // namespace fw
