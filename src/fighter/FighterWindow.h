// What a fighter design needs from its editor window, and no more. The
// editor implements it; a design without a window (multi-print copies, the
// database, bwtool, tests) never calls it.
#pragma once

#include <cstdint>

namespace bw {

class TreeView;

class FighterWindow {
public:
    virtual ~FighterWindow() = default;

    // The editor's wLoading: while set, its change commands return at once.
    virtual void zSetLoading(int16_t wLoading) = 0;
    // The fuel and heat sink up-downs show a configuration's figures.
    virtual void zShowFuelTonnage(int16_t wTons) = 0;
    virtual void zShowHeatSinks(int16_t wSinks) = 0;
    // Checks or clears the targeting computer box; its click command runs.
    virtual void zShowTCStatus(bool checked) = 0;
    // The selected-equipment tree, which the design refills.
    virtual TreeView& zSelectedTree() = 0;

    // What locking the base configuration freezes, in the order it is done.
    // Name, tonnage and thrust read-only, their up-downs and the engine list
    // disabled.
    virtual void zFreezeChassis() = 0;
    // The configuration list and its caption become usable.
    virtual void zEnableConfigList() = 0;
    // The fuel and heat sink up-downs cannot go below what they show now.
    virtual void zHoldLoadoutMinimums() = 0;
    // The computer box and its location list are disabled.
    virtual void zFreezeTC() = 0;
    // Double heat sinks, armor tonnage and type, every armor control and the
    // lock box itself are disabled.
    virtual void zFreezeArmor() = 0;
};

}  // namespace bw
