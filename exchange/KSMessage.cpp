// SPDX-License-Identifier: MIT
// The fields of a message, whose values are kept in their flattened form.
#include "exchange/KSMessage.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

using bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kStringType = 0x43535452;  // 'CSTR'
constexpr std::uint32_t kRectType = 0x4B524354;    // 'KRCT'
constexpr std::uint32_t kInt32Type = 0x4C4F4E47;   // 'LONG'
constexpr std::uint8_t kSignature[4] = {'M', 'E', 'S', 'G'};
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kHeaderSize = 4 + 4 + 8 + 4;  // signature, version, size of the whole, fields
constexpr std::size_t kFieldSize = 4 + 4 + 8;       // type, size of the name, size of the value

bool IsOwnType(std::uint32_t type) {
    return type == kStringType || type == kRectType || type == kInt32Type;
}

// Flattened numbers are little-endian on every processor.
void Put(std::uint64_t value, std::size_t size, std::vector<std::uint8_t>& out) {
    for (std::size_t i = 0; i < size; i++)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint64_t Get(bytes from, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | from[i];
    return value;
}

// Returns the bytes of a text with its final NUL.
bytes BytesOf(const char* text) {
    return {reinterpret_cast<const std::uint8_t*>(text), std::strlen(text) + 1};
}

// Takes numbers and blocks off the front of `rest`. The caller has checked that they are there.
struct reader {
    bytes rest;

    std::uint64_t Number(std::size_t size) { return Get(Block(size), size); }
    bytes Block(std::size_t size) {
        const bytes block = rest.first(size);
        rest = rest.subspan(size);
        return block;
    }
};

// Returns whether the bytes can be a value of the type.
bool IsSound(std::uint32_t type, bytes value) {
    switch (type) {
    case kStringType:
        return !value.empty() && std::find(value.begin(), value.end(), 0) == value.end() - 1;
    case kRectType:
        return value.size() == 4 * 8;
    case kInt32Type:
        return value.size() == 4;
    default:
        return true;
    }
}

// Says whether `whole` starts like a flattened message that can be read.
ks_unflatten_result CheckHeader(bytes whole) {
    if (!std::equal(kSignature, kSignature + std::min(whole.size(), sizeof kSignature), whole.begin()))
        return kUnflattenNotAMessage;
    if (whole.size() < kHeaderSize)
        return kUnflattenTruncated;
    reader from{whole.subspan(sizeof kSignature)};
    if (from.Number(4) != kVersion)
        return kUnflattenUnknownVersion;
    const std::uint64_t size = from.Number(8);
    if (size > whole.size())
        return kUnflattenTruncated;
    return size < kHeaderSize ? kUnflattenDamaged : kUnflattenOk;
}

}  // namespace

KSMessage::KSMessage() = default;
KSMessage::~KSMessage() = default;
KSMessage::KSMessage(const KSMessage&) = default;
KSMessage::KSMessage(KSMessage&&) noexcept = default;
KSMessage& KSMessage::operator=(const KSMessage&) = default;
KSMessage& KSMessage::operator=(KSMessage&&) noexcept = default;

bool KSMessage::Add(const char* name, std::uint32_t type, bytes value) {
    if (name == nullptr)
        return false;
    _fields.push_back({type, name, {value.begin(), value.end()}});
    return true;
}

bool KSMessage::AddString(const char* name, const char* text) {
    return text != nullptr && Add(name, kStringType, BytesOf(text));
}

bool KSMessage::AddRect(const char* name, const KSRect<long>& rect) {
    std::vector<std::uint8_t> value;
    for (const long coordinate : {rect.left, rect.top, rect.right, rect.bottom})
        Put(static_cast<std::uint64_t>(coordinate), 8, value);
    return Add(name, kRectType, value);
}

bool KSMessage::AddInt32(const char* name, std::int32_t value) {
    std::vector<std::uint8_t> flat;
    Put(static_cast<std::uint32_t>(value), 4, flat);
    return Add(name, kInt32Type, flat);
}

bool KSMessage::AddData(const char* name, std::uint32_t type, const void* data, std::size_t size) {
    if (IsOwnType(type) || (data == nullptr && size > 0))
        return false;
    return Add(name, type, {static_cast<const std::uint8_t*>(data), size});
}

const KSMessage::field* KSMessage::Find(const char* name, std::uint32_t type) const {
    if (name == nullptr)
        return nullptr;
    const auto found = std::find_if(_fields.begin(), _fields.end(),
                                    [&](const field& f) { return f.type == type && f.name == name; });
    return found == _fields.end() ? nullptr : &*found;
}

bool KSMessage::FindString(const char* name, const char** text) const {
    const field* found = Find(name, kStringType);
    if (found)
        *text = reinterpret_cast<const char*>(found->value.data());
    return found != nullptr;
}

bool KSMessage::FindRect(const char* name, KSRect<long>* rect) const {
    const field* found = Find(name, kRectType);
    if (!found)
        return false;
    reader from{found->value};
    for (long* coordinate : {&rect->left, &rect->top, &rect->right, &rect->bottom})
        *coordinate = static_cast<long>(from.Number(8));
    return true;
}

bool KSMessage::FindInt32(const char* name, std::int32_t* value) const {
    const field* found = Find(name, kInt32Type);
    if (found)
        *value = static_cast<std::int32_t>(Get(found->value, 4));
    return found != nullptr;
}

bool KSMessage::FindData(const char* name, std::uint32_t type, const void** data, std::size_t* size) const {
    const field* found = IsOwnType(type) ? nullptr : Find(name, type);
    if (!found)
        return false;
    *data = found->value.data();
    *size = found->value.size();
    return true;
}

std::vector<std::uint8_t> KSMessage::Flatten() const {
    std::size_t size = kHeaderSize;
    for (const field& f : _fields)
        size += kFieldSize + f.name.size() + f.value.size();

    std::vector<std::uint8_t> out;
    out.reserve(size);
    for (const std::uint8_t byte : kSignature)
        out.push_back(byte);
    Put(kVersion, 4, out);
    Put(size, 8, out);
    Put(_fields.size(), 4, out);
    for (const field& f : _fields) {
        Put(f.type, 4, out);
        Put(f.name.size(), 4, out);
        Put(f.value.size(), 8, out);
        out.insert(out.end(), f.name.begin(), f.name.end());
        out.insert(out.end(), f.value.begin(), f.value.end());
    }
    return out;
}

ks_unflatten_result KSMessage::Unflatten(bytes whole) {
    const ks_unflatten_result header = CheckHeader(whole);
    if (header != kUnflattenOk)
        return header;

    reader from{whole.subspan(sizeof kSignature + 4)};
    const std::uint64_t size = from.Number(8);
    const std::uint64_t count = from.Number(4);
    from.rest = from.rest.first(size - kHeaderSize);
    if (count > from.rest.size() / kFieldSize)
        return kUnflattenDamaged;

    std::vector<field> fields;
    fields.reserve(count);
    for (std::uint64_t i = 0; i < count; i++) {
        if (from.rest.size() < kFieldSize)
            return kUnflattenDamaged;
        const auto type = static_cast<std::uint32_t>(from.Number(4));
        const std::uint64_t name_size = from.Number(4);
        const std::uint64_t value_size = from.Number(8);
        if (name_size > from.rest.size() || value_size > from.rest.size() - name_size)
            return kUnflattenDamaged;
        const bytes name = from.Block(name_size);
        const bytes value = from.Block(value_size);
        if (std::find(name.begin(), name.end(), 0) != name.end() || !IsSound(type, value))
            return kUnflattenDamaged;
        fields.push_back({type, {name.begin(), name.end()}, {value.begin(), value.end()}});
    }
    if (!from.rest.empty())
        return kUnflattenDamaged;
    _fields = std::move(fields);
    return kUnflattenOk;
}
