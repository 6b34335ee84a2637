#include "project/packed_records.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <utility>

#include "core/runtime_error.h"
#include "project/project_layout.h"

namespace orvane {

namespace {

// The first byte of a packed value tells its form.
//   text    0x80 and the character, for a text of one ASCII character, which most of a hole's are;
//           else the length, or LongText and the length in four bytes; then the text
//   number  Small and a byte, Whole and two bytes for 16 bits, else Raw and the value's own bytes
constexpr unsigned char OneCharacter = 0x80;
constexpr unsigned char LongText = 0x7F;
constexpr unsigned char Small = 0;
constexpr unsigned char Whole16 = 1;
constexpr unsigned char Raw = 2;

// The layout's visitor that packs.
class Packer {
 public:
  void Plain(const std::string& text) {
    if (text.size() == 1 && static_cast<unsigned char>(text.front()) < OneCharacter) {
      Byte(static_cast<unsigned char>(OneCharacter | static_cast<unsigned char>(text.front())));
      return;
    }
    if (text.size() < LongText) {
      Byte(static_cast<unsigned char>(text.size()));
    } else {
      Byte(LongText);
      Bytes(static_cast<std::uint32_t>(text.size()));
    }
    packed_.append(text);
  }
  void Quoted(const std::string& text) { Plain(text); }
  void Sign(const std::string& text) { Plain(text); }

  // A whole number takes less room, but the bits of the others stay as they are: 0.1 of a gap, and
  // the sign of a zero.
  template <class Field>
  void Number(Field field) {
    const auto value = static_cast<double>(field);
    const bool whole = value >= std::numeric_limits<std::int16_t>::min() &&
                       value <= std::numeric_limits<std::int16_t>::max() &&
                       value == std::trunc(value) && !(value == 0 && std::signbit(value));
    if (!whole) {
      Byte(Raw);
      return Bytes(field);
    }
    const auto number = static_cast<std::int16_t>(value);
    if (number >= 0 && number <= std::numeric_limits<unsigned char>::max()) {
      Byte(Small);
      return Byte(static_cast<unsigned char>(number));
    }
    Byte(Whole16);
    Bytes(number);
  }

  template <class Row>
  int Count(const Table<Row>& table) {
    Bytes(static_cast<std::int32_t>(table.UBound()));
    return table.UBound();
  }
  template <class Row>
  void Size(const Table<Row>&, int) {}
  template <class Row>
  void Rows(const Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

  template <class Value>
  void Bytes(Value value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    packed_.append(bytes, sizeof value);
  }

  // Kept for long, and so without the room that it grew into.
  Packed Take() {
    packed_.shrink_to_fit();
    return std::make_shared<const std::string>(std::move(packed_));
  }

 private:
  void Byte(unsigned char byte) { packed_.push_back(static_cast<char>(byte)); }

  std::string packed_;
};

// And the one that unpacks.
class Unpacker {
 public:
  explicit Unpacker(std::string_view packed) : rest_(packed) {}

  bool AtEnd() const { return rest_.empty(); }

  void Plain(std::string& text) {
    const unsigned char form = Byte();
    if ((form & OneCharacter) != 0) {
      text.assign(1, static_cast<char>(form & LongText));
      return;
    }
    const std::size_t length = form == LongText ? Bytes<std::uint32_t>() : form;
    text.assign(Cut(length));
  }
  void Quoted(std::string& text) { Plain(text); }
  void Sign(std::string& text) { Plain(text); }

  template <class Field>
  void Number(Field& field) {
    switch (Byte()) {
      case Small:
        field = static_cast<Field>(Byte());
        break;
      case Whole16:
        field = static_cast<Field>(Bytes<std::int16_t>());
        break;
      default:
        field = Bytes<Field>();
        break;
    }
  }

  // Each row takes a byte at least: a count of more can't be true, and mustn't take their room.
  template <class Row>
  int Count(const Table<Row>&) {
    const auto count = Bytes<std::int32_t>();
    if (count < 0 || static_cast<std::size_t>(count) > rest_.size()) {
      throw RuntimeError(Failure::InputPastEndOfFile);
    }
    return count;
  }
  template <class Row>
  void Size(Table<Row>& table, int count) {
    Table<Row> sized;
    sized.Resize(count);
    table = std::move(sized);
  }
  template <class Row>
  void Rows(Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

  template <class Value>
  Value Bytes() {
    Value value;
    std::memcpy(&value, Cut(sizeof value).data(), sizeof value);
    return value;
  }

 private:
  unsigned char Byte() { return static_cast<unsigned char>(Cut(1).front()); }

  std::string_view Cut(std::size_t length) {
    if (length > rest_.size()) throw RuntimeError(Failure::InputPastEndOfFile);
    const std::string_view cut = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return cut;
  }

  std::string_view rest_;
};

template <class Visitor, class Lines>
void DescribeLines(Visitor& visit, Lines& lines) {
  const int count = visit.Count(lines);
  visit.Size(lines, count);
  visit.Rows(lines, 1, count);
}

}  // namespace

Packed PackSection(const Item& item) {
  Packer packer;
  packer.Bytes(item.Serial);
  Describe(packer, item);
  return packer.Take();
}

Item UnpackSection(const Packed& packed) {
  return UnpackSection(std::string_view(*packed));
}

Item UnpackSection(std::string_view packed) {
  Unpacker unpacker(packed);
  Item item;
  item.Serial = unpacker.Bytes<std::int32_t>();
  Describe(unpacker, item);
  if (!unpacker.AtEnd()) throw RuntimeError(Failure::TypeMismatch);
  return item;
}

Packed PackAccessories() {
  Packer packer;
  DescribeLines(packer, AccLines1);
  DescribeLines(packer, AccLines2);
  packer.Bytes(static_cast<std::int32_t>(AccUsed.UBound()));
  for (const Boolean flag : AccUsed) packer.Bytes(flag);
  return packer.Take();
}

void UnpackAccessories(const Packed& packed, const JobRecords& records) {
  Unpacker unpacker(*packed);
  DescribeLines(unpacker, records.AccLines1);
  DescribeLines(unpacker, records.AccLines2);
  records.AccUsed.Resize(unpacker.Bytes<std::int32_t>());
  for (Boolean& flag : records.AccUsed) flag = unpacker.Bytes<Boolean>();
}

Packed PackDetails() {
  Packer packer;
  for (const std::string& text : txtProject) packer.Plain(text);
  packer.Bytes(DTPicker1);
  return packer.Take();
}

void UnpackDetails(const Packed& packed, const JobRecords& records) {
  Unpacker unpacker(*packed);
  for (std::string& text : records.Details) unpacker.Plain(text);
  records.ProjectDate = unpacker.Bytes<Date>();
}

bool IsSame(const Packed& one, const Packed& other) {
  if (!one || !other) return one == other;
  return one == other || *one == *other;
}

}  // namespace orvane
