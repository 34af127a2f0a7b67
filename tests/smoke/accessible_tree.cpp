// SPDX-License-Identifier: MIT
#include "accessible_tree.h"

#include <stdexcept>
#include <systemd/sd-bus.h>

namespace {

constexpr char kRegistry[] = "org.a11y.atspi.Registry";
constexpr char kRoot[] = "/org/a11y/atspi/accessible/root";
constexpr char kAccessible[] = "org.a11y.atspi.Accessible";
constexpr char kComponent[] = "org.a11y.atspi.Component";
constexpr char kText[] = "org.a11y.atspi.Text";
constexpr char kValue[] = "org.a11y.atspi.Value";
constexpr std::uint32_t kScreenCoordinates = 0;
constexpr std::uint64_t kCallMicroseconds = 10'000'000;

sd_bus* Connect(const std::string& address) {
    sd_bus* bus = nullptr;
    sd_bus_new(&bus);
    sd_bus_set_bus_client(bus, true);
    sd_bus_set_method_call_timeout(bus, kCallMicroseconds);
    if (sd_bus_set_address(bus, address.c_str()) < 0 || sd_bus_start(bus) < 0)
        throw std::runtime_error("no bus at " + address);
    return bus;
}

}  // namespace

// A method call and its answer. An object that has vanished answers nothing: what is read is then left as it
// was.
struct AccessibleTree::Call {
    template <class... Arguments>
    Call(sd_bus* bus, const accessible_node& node, const char* interface, const char* method,
         const char* types, Arguments... arguments) {
        sd_bus_call_method(bus, node.owner.c_str(), node.path.c_str(), interface, method, nullptr, &answer,
                           types, arguments...);
    }
    ~Call() { sd_bus_message_unref(answer); }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    template <class... Values> void Read(const char* types, Values... values) {
        if (answer)
            sd_bus_message_read(answer, types, values...);
    }

    sd_bus_message* answer = nullptr;
};

AccessibleTree::AccessibleTree(const std::string& address) : _session(Connect(address)) {
    const accessible_node launcher = {"org.a11y.Bus", "/org/a11y/bus", {}, {}};
    const char* accessibility_bus = "";
    Call address_call(_session, launcher, "org.a11y.Bus", "GetAddress", "");
    address_call.Read("s", &accessibility_bus);
    _bus = Connect(accessibility_bus);
    if (sd_bus_set_property(_session, launcher.owner.c_str(), launcher.path.c_str(), "org.a11y.Status",
                            "IsEnabled", nullptr, "b", 1) < 0)
        throw std::runtime_error("the accessibility bus cannot be enabled");
}

AccessibleTree::~AccessibleTree() {
    sd_bus_close_unref(_bus);
    sd_bus_close_unref(_session);
}

std::vector<accessible_node> AccessibleTree::Windows() {
    std::vector<accessible_node> windows;
    for (const accessible_node& program : ChildrenOf({kRegistry, kRoot, {}, {}}))
        for (accessible_node& window : ChildrenOf(program))
            windows.push_back(std::move(window));
    return windows;
}

std::vector<accessible_node> AccessibleTree::ChildrenOf(const accessible_node& node) {
    std::vector<accessible_node> children;
    Call list(_bus, node, kAccessible, "GetChildren", "");
    if (!list.answer || sd_bus_message_enter_container(list.answer, 'a', "(so)") < 0)
        return children;
    const char *owner, *path;
    while (sd_bus_message_read(list.answer, "(so)", &owner, &path) > 0) {
        accessible_node child = {owner, path, {}, {}};
        child.name = TextProperty(child, "Name");
        std::uint32_t role = 0;
        Call(_bus, child, kAccessible, "GetRole", "").Read("u", &role);
        child.role = static_cast<accessible_role>(role);
        children.push_back(child);
    }
    return children;
}

std::optional<accessible_node> AccessibleTree::Find(const std::string& name, accessible_role role) {
    return FindBelow({kRegistry, kRoot, {}, {}}, name, role);
}

// What does not show has nothing below it that shows; the programs themselves are not shown, only named.
std::optional<accessible_node> AccessibleTree::FindBelow(const accessible_node& parent,
                                                         const std::string& name, accessible_role role) {
    for (const accessible_node& child : ChildrenOf(parent)) {
        if (parent.owner != kRegistry && !Has(child, accessible_state::kShowing))
            continue;
        if (child.name == name && child.role == role)
            return child;
        if (auto found = FindBelow(child, name, role))
            return found;
    }
    return {};
}

std::string AccessibleTree::TextProperty(const accessible_node& node, const char* name) {
    char* text = nullptr;
    sd_bus_get_property_string(_bus, node.owner.c_str(), node.path.c_str(), kAccessible, name, nullptr,
                               &text);
    const std::string copy = text ? text : "";
    free(text);
    return copy;
}

std::string AccessibleTree::DescriptionOf(const accessible_node& node) {
    return TextProperty(node, "Description");
}

std::string AccessibleTree::TextOf(const accessible_node& node) {
    const char* text = "";
    Call call(_bus, node, kText, "GetText", "ii", 0, -1);
    call.Read("s", &text);
    return text;
}

double AccessibleTree::ValueOf(const accessible_node& node) {
    double value = 0;
    sd_bus_get_property_trivial(_bus, node.owner.c_str(), node.path.c_str(), kValue, "CurrentValue", nullptr,
                                'd', &value);
    return value;
}

bool AccessibleTree::Has(const accessible_node& node, accessible_state state) {
    std::uint32_t low = 0, high = 0;
    Call(_bus, node, kAccessible, "GetState", "").Read("au", 2, &low, &high);
    return (low >> static_cast<unsigned>(state)) & 1;
}

screen_rect AccessibleTree::FrameOf(const accessible_node& node) {
    screen_rect frame{};
    Call(_bus, node, kComponent, "GetExtents", "u", kScreenCoordinates)
        .Read("(iiii)", &frame.left, &frame.top, &frame.width, &frame.height);
    return frame;
}
