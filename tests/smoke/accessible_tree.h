// SPDX-License-Identifier: MIT
// What an assistive tool sees: the tree that programs offer on the accessibility bus (AT-SPI).
#pragma once

#include "virtual_screen.h"

#include <cstdint>
#include <optional>

struct sd_bus;
struct sd_bus_message;

// Roles and states as AT-SPI numbers them.
enum class accessible_role : std::uint32_t {
    kCheckBox = 7,
    kColorChooser = 9,
    kComboBox = 11,
    kList = 31,
    kListItem = 32,
    kPushButton = 43,
    kSpinButton = 52,
    kText = 61,
};

enum class accessible_state : unsigned { kChecked = 4, kFocused = 12, kSelected = 23, kShowing = 25 };

// One object of the tree. It stays good for as long as the program keeps the object.
struct accessible_node {
    std::string owner, path;
    std::string name;
    accessible_role role;
};

class AccessibleTree {
public:
    // Connects through the session bus at `address`, starting the accessibility bus, and tells programs that
    // an assistive tool is there.
    explicit AccessibleTree(const std::string& address);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    // The windows of every program.
    std::vector<accessible_node> Windows();
    // The first object with this name and role that is showing, or nothing.
    std::optional<accessible_node> Find(const std::string& name, accessible_role role);

    std::string DescriptionOf(const accessible_node& node);
    std::string TextOf(const accessible_node& node);
    double ValueOf(const accessible_node& node);
    bool Has(const accessible_node& node, accessible_state state);
    screen_rect FrameOf(const accessible_node& node);

private:
    struct Call;
    std::vector<accessible_node> ChildrenOf(const accessible_node& node);
    std::optional<accessible_node> FindBelow(const accessible_node& parent, const std::string& name,
                                             accessible_role role);
    std::string TextProperty(const accessible_node& node, const char* name);

    sd_bus* _session = nullptr;
    sd_bus* _bus = nullptr;
};
