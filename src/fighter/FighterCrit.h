// The critical slots of a fighter for one run of the allocation window:
// Nose, Left Wing and Right Wing with 6 slots each, Rear with 2. A scratch
// model, never stored: the design keeps only each entry's location and slot.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace bw {

// What stands in one slot. Ammunition of one row stacks, one entry per ton.
struct CritSlot {
    // Instance numbers of the entries here; element 0 is -1 while empty.
    std::vector<int16_t> wInstances{-1};
    // Weapon table row of what stands here; kept when the slot empties, so
    // the same ammunition finds its way back.
    int16_t wIdx = 0;
    // For each instance, its index in the design's weapon list.
    std::vector<int16_t> wListIdx{0};

    bool Empty() const { return wInstances.front() == -1; }
    bool operator==(const CritSlot&) const = default;
};

// Slots per location, Nose to Rear.
constexpr std::array<int16_t, 4> kFighterCritSlots = {6, 6, 6, 2};

// The global slot record of SetCritGlobal and SetCritStatus.
extern CritSlot gCurrentCrit;

class FighterCrit {
public:
    FighterCrit();

    // Location 0 to 3, slot within it; a slot out of range raises 9, as
    // does a location out of range.
    CritSlot& Slot(int16_t wLocIdx, int16_t wSlot);
    const CritSlot& Slot(int16_t wLocIdx, int16_t wSlot) const;

    // Copies a record into gCurrentCrit and back. A location outside 0 to 3
    // does nothing; a slot out of range is reported as a bounds error.
    void SetCritGlobal(int16_t wLocIdx, int16_t wSlot) const;
    void SetCritStatus(int16_t wLocIdx, int16_t wSlot);

private:
    std::array<std::vector<CritSlot>, 4> wSlots;
};

}  // namespace bw
