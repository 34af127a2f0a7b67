// SPDX-License-Identifier: MIT
// The toolkit's keyed message: named, typed values, in memory or flattened into bytes.
#pragma once

#include "hdr/KSRect.h"
#include "hdr/ks_export.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// What Unflatten found.
enum ks_unflatten_result : std::int32_t {
    kUnflattenOk,
    kUnflattenNotAMessage,     // the bytes do not start as a flattened message does
    kUnflattenUnknownVersion,  // a flattened message of a version that this library does not know
    kUnflattenTruncated,       // there are fewer bytes than the message says it has
    kUnflattenDamaged,         // lengths or values contradict each other
};

// A message keeps its fields in the order in which they were added. Several fields may have the same name;
// the Find operations take the first of the type that they look for. Names and texts are bytes that end at
// their first NUL.
//
// The Find operations return whether there is such a field. If there is none, they leave their targets alone.
// The Add operations add nothing and return false for a null name, a null text, or null data with a size
// above 0. They throw std::bad_alloc with the message as it was.
class KS_EXPORT KSMessage {
public:
    KSMessage();
    ~KSMessage();
    KSMessage(const KSMessage&);
    KSMessage(KSMessage&&) noexcept;
    KSMessage& operator=(const KSMessage&);
    KSMessage& operator=(KSMessage&&) noexcept;

    // Adds a field with a copy of the value.
    bool AddString(const char* name, const char* text);
    bool AddRect(const char* name, const KSRect<long>& rect);
    bool AddInt32(const char* name, std::int32_t value);
    // Adds a copy of `size` bytes under a type code of the caller's. Returns false for the codes of the other
    // Add operations ('CSTR', 'KRCT', 'LONG').
    bool AddData(const char* name, std::uint32_t type, const void* data, std::size_t size);

    // Sets `text` to memory of the message, which is valid until the message changes or is destroyed.
    bool FindString(const char* name, const char** text) const;
    bool FindRect(const char* name, KSRect<long>* rect) const;
    bool FindInt32(const char* name, std::int32_t* value) const;
    // Sets `data` and `size` to the bytes of the field. They are memory of the message, as for FindString,
    // and start at a multiple of four.
    bool FindData(const char* name, std::uint32_t type, const void** data, std::size_t* size) const;

    // Returns the number of fields.
    std::size_t CountFields() const { return _fields.size(); }
    void MakeEmpty() { _fields.clear(); }

    // Returns the message as bytes that Unflatten reads on any processor; docs/archive-format.md describes
    // them. Data fields are kept byte for byte.
    std::vector<std::uint8_t> Flatten() const;

    // Replaces all fields by those of a flattened message, and ignores bytes behind it. The bytes may come
    // from anywhere: nothing outside of them is read, and the memory used is in proportion to their number.
    // With any result but kUnflattenOk the message stays as it was. Throws std::bad_alloc.
    ks_unflatten_result Unflatten(std::span<const std::uint8_t> bytes);

private:
    struct field {
        std::uint32_t type;
        std::string name;
        std::vector<std::uint8_t> value;
    };

    bool Add(const char* name, std::uint32_t type, std::span<const std::uint8_t> value);
    const field* Find(const char* name, std::uint32_t type) const;

    std::vector<field> _fields;
};
