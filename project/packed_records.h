// Records of the job packed into short texts, so that hundreds of their former states are kept at
// little cost: a section of twelve holes takes some 300 bytes instead of 4 KB. Their form is
// nobody's outside this program, and may change with each version: they are for memory, and to be
// handed to another run of the program that has the same form.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/model.h"
#include "project/job.h"

namespace orvane {

// A packed record that many states share; never changed.
using Packed = std::shared_ptr<const std::string>;

// A section with all that it holds, its serial too; of a hole list the end sentinel goes with the
// holes.
Packed PackSection(const Item& item);
Item UnpackSection(const Packed& packed);
// The same from bytes that may be anything: what is no packed section raises "Input past end of
// file" or "Type mismatch".
Item UnpackSection(std::string_view packed);

// The accessory lines of both types and the flags.
Packed PackAccessories();
void UnpackAccessories(const Packed& packed, const JobRecords& records);

// The project's details and its date.
Packed PackDetails();
void UnpackDetails(const Packed& packed, const JobRecords& records);

// Both missing, or both there with one content.
bool IsSame(const Packed& one, const Packed& other);

}  // namespace orvane
