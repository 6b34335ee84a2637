// How an error that stops a command says where it happened: a job has hundreds of sections, and
// "Division by zero" alone leaves its user to look at them all.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace orvane {

// A row of Items by its mark; "Item 3" for one without a mark.
std::string NameOfSection(std::int16_t ItemIndex);

// A row of AccDefs by its name, with the mark of one of its lines behind it where one is given;
// "Accessory 27" for a row that the catalogue hasn't got.
std::string NameOfAccessory(std::int16_t accessory, std::string_view mark = {});

// Runs the action; a RuntimeError of it gets the name and a colon in front of its description.
void InNameOfSection(std::int16_t ItemIndex, const std::function<void()>& action);
void InNameOfAccessory(std::int16_t accessory, std::string_view mark,
                       const std::function<void()>& action);

}  // namespace orvane
