// What the synchroniser needs of a store. Any thread may call.
//
// The form of a value in transit is the stores' own agreement: a package's path between event stores,
// a dictionary between category stores. A sync write posts no CCKeyStoreDidUpdateNotification, or
// values would bounce between two stores for ever.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Object.h"
#include "platform/Result.h"
#include "sync/CCSyncItemVersion.h"

namespace dayward {

class CCSyncKeyStore {
public:
    virtual ~CCSyncKeyStore() = default;

    /// The store has loaded and may be compared.
    [[nodiscard]] virtual bool initialized() const = 0;
    [[nodiscard]] virtual std::vector<std::string> getSyncKeys() = 0;
    /// Nothing where the key has no readable value.
    [[nodiscard]] virtual std::optional<CCSyncItemVersion> syncVersionForKey(const std::string& key) = 0;
    /// The value of a key in the form that the receiving store understands.
    virtual Result<Object> syncRead(const std::string& key, CCSyncKeyStore& toStore) = 0;
    /// Stores the value, version and all; a null value removes the key. After a failure the store is
    /// as it was.
    virtual Result<> syncWrite(const Object& value, const std::string& key, CCSyncKeyStore& fromStore) = 0;
};

}  // namespace dayward
