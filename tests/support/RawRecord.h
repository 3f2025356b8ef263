// A record with any keys, to write archives that no program of ours would.
#pragma once

#include "platform/KeyedArchiver.h"

namespace dayward {

class RawRecord final : public Archivable {
public:
    RawRecord(std::string className, Dictionary values)
        : className_(std::move(className)), values_(std::move(values)) {}
    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {className_}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        for (const auto& [key, value] : values_) {
            const bool isInteger = std::holds_alternative<std::int64_t>(value.value());
            isInteger ? coder.encodeInteger(*value.integer(), key) : coder.encodeObject(value, key);
        }
    }

private:
    std::string className_;
    Dictionary values_;
};

}  // namespace dayward
