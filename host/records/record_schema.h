// Schemas of typed records, read from the texts that a descriptor carries. platform/include/bag/bag.h describes their
// language. Offsets and sizes are worked out from the texts alone; what a descriptor says about them is judged by it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/error.h"
#include "host/base/export.h"

namespace oclacp::host {

enum class FieldKind { kUnsigned, kEnumeration, kIpv4, kText, kBytes, kRecord, kReference, kArray, kUnion };

// How a value is shown.
enum class DisplayHint { kNone, kInterface, kNode, kMac, kIpv6 };

// How schemas call a record type: "$126".
std::string type_name(std::uint64_t number);

struct UnionArm;

struct FieldType {
  FieldKind kind = FieldKind::kUnsigned;
  DisplayHint hint = DisplayHint::kNone;
  std::uint64_t size = 0;       // in bytes
  std::uint64_t alignment = 1;  // in bytes
  std::uint32_t record = 0;     // kRecord, kReference, kArray: the number of the record type
  std::string enumeration;      // kEnumeration, kUnion: its name; empty in a compact schema
  std::string tag;              // kUnion: the name of the discriminator; empty in a compact schema
  std::vector<UnionArm> arms;   // kUnion
};

struct RecordField {
  std::string name;          // empty in a compact schema, and where the record stands for its value
  std::uint64_t offset = 0;  // from the start of the record; in an arm, of the union
  FieldType type;
};

struct UnionArm {
  std::uint32_t value = 0;  // of the discriminator
  RecordField field;
};

struct RecordType {
  std::uint32_t number = 0;
  std::uint64_t size = 0;
  std::uint64_t alignment = 1;
  std::vector<RecordField> fields;

  // Whether the record stands for the value of its only field, which has no name. In a full schema only.
  [[nodiscard]] bool is_bare() const { return fields.size() == 1 && fields.front().name.empty(); }
};

// A union's discriminator stands in the first 4 of these bytes, its arm after them.
inline constexpr std::uint64_t kUnionTagSize = 8;

// No record is larger. A descriptor that claims more is refused, so that no input makes the decoder's work grow.
inline constexpr std::uint64_t kLargestRecord = 65536;

class OCLACP_HOST_API RecordSchema {
 public:
  enum class Form { kFull, kCompact };

  // Throws Error when the text breaks the language, uses a type that it does not define, defines one that is not
  // used, or embeds records without end.
  RecordSchema(std::string_view text, Form form);

  // All types: the top record, then the others in ascending number.
  [[nodiscard]] const std::vector<RecordType>& types() const { return types_; }
  [[nodiscard]] const RecordType& top() const { return types_.front(); }
  // Null when this schema has no such type; it has all that its fields name.
  [[nodiscard]] const RecordType* find(std::uint32_t number) const;

 private:
  std::vector<RecordType> types_;
};

// Whether two types are the same but for names.
bool same_but_for_names(const RecordType& one, const RecordType& other);

}  // namespace oclacp::host
