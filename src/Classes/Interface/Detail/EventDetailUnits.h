// The rows of an event's detail that tell the whole distance in each unit: "Years: 0.38".
#pragma once

#include <string>
#include <vector>

#include "intervals/XDIDateInterval.h"

namespace dayward {

struct DetailUnitRow {
    std::string label;  ///< "Years", localised, without the colon
    std::string value;
    bool operator==(const DetailUnitRow&) const = default;
};

/// One row for each set field, years first. Seconds are whole, all others have two decimals.
std::vector<DetailUnitRow> detailUnitRows(const XDIDateInterval& detailInterval);

}  // namespace dayward
