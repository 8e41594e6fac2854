// SPDX-License-Identifier: GPL-3.0-or-later
// No memory grows with the rows of the long table. A program of its own, because it counts what is allocated in it.
#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/gui/AccessibleTest.h"
#include "tests/gui/WindowedGridTest.h"

// Of the address sanitizer, where the program is built with it: its heap is another.
extern "C" __attribute__((weak)) size_t __sanitizer_get_current_allocated_bytes();

namespace {
std::atomic<int64_t> Allocated{0};  // bytes asked for since the program began, freed or not
}

void* operator new(size_t Bytes) {
    Allocated += static_cast<int64_t>(Bytes);
    if (void* Made = std::malloc(Bytes)) return Made;
    throw std::bad_alloc();
}
void operator delete(void* Made) noexcept { std::free(Made); }
void operator delete(void* Made, size_t) noexcept { std::free(Made); }

namespace gui {

namespace {

// What the whole program holds, the toolkit's own blocks included.
int64_t HeldBytes() {
    if (__sanitizer_get_current_allocated_bytes) return static_cast<int64_t>(__sanitizer_get_current_allocated_bytes());
    const struct mallinfo2 Info = mallinfo2();
    return static_cast<int64_t>(Info.uordblks + Info.hblkhd);
}

// One bit a row would be a thousand times as much at the greatest count.
constexpr int64_t kNoise = 256 * 1024;

struct TUse {
    int64_t Allocated, Held;
};

// Everything that a user does with a table; it is open when the bytes are counted.
TUse UseOf(int32_t Count) {
    const int64_t Before = Allocated, Held = HeldBytes();
    TOpenTable Table(Count);
    for (const Qt::Key Key : {Qt::Key_End, Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Down}) {
        Table.Press(Key);
        Table.Press(Key, Qt::ShiftModifier);
    }
    Table.Scroll(Table.Bar().maximum() / 2);
    Table.Press(Qt::Key_A, Qt::ControlModifier);
    Table.Fill(Count);
    Table.Selection().Clear();
    QAccessibleInterface& Reader = TScreenReader::Of(*Table.Widget);
    for (int i = 0; i < Reader.childCount(); ++i) (void)Reader.child(i)->text(QAccessible::Name);
    (void)TScreenReader::TableOf(*Table.Widget).selectedRows();
    (void)TScreenReader::TableOf(*Table.Widget).cellAt(Count - 1, 0)->text(QAccessible::Description);
    Table.Data().Forget();  // the test's own
    return {Allocated - Before, HeldBytes() - Held};
}

}  // namespace

TEST(WindowedGridMemory, TheCountersSeeWhatIsAllocated) {
    const int64_t Before = Allocated, Held = HeldBytes();
    const std::vector<char> Block(4 * kNoise);
    EXPECT_GE(Allocated - Before, 4 * kNoise);
    EXPECT_GE(HeldBytes() - Held, 4 * kNoise);
    const QByteArray Toolkit(4 * kNoise, 'x');
    EXPECT_GE(HeldBytes() - Held, 8 * kNoise) << Block.size() + static_cast<size_t>(Toolkit.size());
}

TEST(WindowedGridMemory, TheGreatestTableTakesWhatAThousandRowsTake) {
    support::TFakeHost Host;
    TScreenReader Screen;
    UseOf(1'000);  // fonts and the toolkit's caches
    const TUse Short = UseOf(1'000), Long = UseOf(kMostRows);
    EXPECT_LT(Long.Allocated, Short.Allocated + kNoise);
    EXPECT_LT(Long.Held, Short.Held + kNoise);
    EXPECT_GT(Short.Allocated, 0);
}

}  // namespace gui
