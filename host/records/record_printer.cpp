#include "host/records/record_printer.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "host/present/text_table.h"

namespace oclacp::host {
namespace {

using Form = DecodedField::Form;

using Align = TextTable::Align;

// A table of fields; its last column describes them.
TextTable field_table(const char* told) {
  return TextTable({{"OFFSET", Align::kRight}, {"SIZE", Align::kRight}, {"FIELD"}, {told}});
}

std::string indented(const std::string& text, unsigned depth) {
  return std::string(std::size_t{2} * depth, ' ') + text;
}

// What a field is, in words.
std::string type_text(const FieldType& type) {
  switch (type.kind) {
    case FieldKind::kUnsigned:
      if (type.hint == DisplayHint::kInterface) {
        return "interface handle";
      }
      if (type.hint == DisplayHint::kNode) {
        return "node";
      }
      return "unsigned, " + std::to_string(type.size * 8) + " bits";
    case FieldKind::kEnumeration:
      return "enum " + type.enumeration;
    case FieldKind::kIpv4:
      return "IPv4 address";
    case FieldKind::kText:
      return "reference to text";
    case FieldKind::kBytes:
      if (type.hint == DisplayHint::kMac) {
        return "MAC address";
      }
      if (type.hint == DisplayHint::kIpv6) {
        return "IPv6 address";
      }
      return std::to_string(type.size) + " bytes";
    case FieldKind::kRecord:
      return "record " + type_name(type.record);
    case FieldKind::kReference:
      return "reference to " + type_name(type.record);
    case FieldKind::kArray:
      return "array of " + type_name(type.record);
    case FieldKind::kUnion:
      return "one of " + std::to_string(type.arms.size()) + ", chosen by " + type.tag;
  }
  return {};
}

// Lists the fields of a record, those of embedded records and unions under the field that holds them.
class FieldLister {
 public:
  FieldLister(const RecordSchema& schema, TextTable& table, std::set<std::uint32_t>& referred)
      : schema_(schema), table_(table), referred_(referred) {}

  void fields(const RecordType& record, std::uint64_t start, unsigned depth) {
    for (const RecordField& field : record.fields) {
      add(record.is_bare() ? "(the value)" : field.name, start + field.offset, field.type, depth, "");
    }
  }

 private:
  void add(const std::string& name, std::uint64_t offset, const FieldType& type, unsigned depth,
           const std::string& condition) {
    const RecordType* record = type.kind == FieldKind::kRecord ? schema_.find(type.record) : nullptr;
    const bool is_its_value = record != nullptr && record->is_bare();
    const FieldType& shown = is_its_value ? record->fields.front().type : type;
    table_.add({{std::to_string(offset)},
                {std::to_string(type.size)},
                {indented(name, depth)},
                {type_text(shown) + condition}});
    members(shown, offset, depth + 1);
  }

  void members(const FieldType& type, std::uint64_t offset, unsigned depth) {
    if (type.kind == FieldKind::kReference || type.kind == FieldKind::kArray) {
      referred_.insert(type.record);
    }
    if (type.kind == FieldKind::kRecord) {
      fields(*schema_.find(type.record), offset, depth);
    }
    if (type.kind != FieldKind::kUnion) {
      return;
    }
    table_.add({{std::to_string(offset)}, {"4"}, {indented(type.tag, depth)}, {"enum " + type.enumeration}});
    for (const UnionArm& arm : type.arms) {
      add(arm.field.name, offset + arm.field.offset, arm.field.type, depth,
          ", if " + type.tag + " is " + std::to_string(arm.value));
    }
  }

  const RecordSchema& schema_;
  TextTable& table_;
  std::set<std::uint32_t>& referred_;
};

// What the table shows beside a field's name.
std::string value_text(const DecodedField& field) {
  switch (field.form) {
    case Form::kNumber:
      return field.of.empty() ? field.value : field.value + " (" + field.of + ")";
    case Form::kText:
      return field.value;
    case Form::kNothing:
      return "no " + field.of;
    case Form::kReference:
      return field.of + " at " + field.value;
    case Form::kArray:
      return "array of " + field.of + ": " + field.value + " " + field.second;
    case Form::kRecord:
      break;
  }
  return {};
}

void add_lines(TextTable& table, const DecodedField& field, unsigned depth) {
  table.add({{std::to_string(field.offset)},
             {std::to_string(field.size)},
             {indented(field.name, depth)},
             {value_text(field)}});
  for (const DecodedField& member : field.members) {
    add_lines(table, member, depth + 1);
  }
}

// Texts are UTF-8 already: what has to be escaped are quotes, backslashes and control characters.
std::string quoted(const std::string& text) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += {'\\', c};
    } else if (static_cast<unsigned char>(c) < 0x20) {
      json += {'\\', 'u', '0', '0', kDigits[c >> 4], kDigits[c & 15]};
    } else {
      json += c;
    }
  }
  return json + '"';
}

std::string json_value(const DecodedField& field, unsigned depth) {
  switch (field.form) {
    case Form::kNumber:
      return field.is_wide ? quoted(field.value) : field.value;
    case Form::kText:
      return quoted(field.value);
    case Form::kNothing:
      return "null";
    case Form::kReference:
      return "{\"reference\": " + quoted(field.value) + "}";
    case Form::kArray:
      return "{\"array\": [" + quoted(field.value) + ", " + quoted(field.second) + "]}";
    case Form::kRecord:
      break;
  }
  std::string json = "{";
  for (const DecodedField& member : field.members) {
    json += (json.size() == 1 ? "\n" : ",\n") + indented(quoted(member.name), depth + 1) + ": " +
            json_value(member, depth + 1);
  }
  return json + "\n" + indented("}", depth);
}

}  // namespace

std::string list_bags(const RecordRegistry& registry) {
  TextTable table({{"BAG"}, {"RECORD"}, {"SIZE", Align::kRight}, {"FURTHER RECORDS (SIZE)"}});
  for (const Bag& bag : registry.bags()) {
    std::string further;
    for (const RecordType& type : bag.schema.types()) {
      if (&type == &bag.schema.top()) {
        continue;
      }
      further += (further.empty() ? "" : ", ") + type_name(type.number) + " (" + std::to_string(type.size) + ")";
    }
    const RecordType& top = bag.schema.top();
    table.add({{bag.name}, {type_name(top.number)}, {std::to_string(top.size)}, {further}});
  }
  return table.text({});
}

std::string show_bag(const Bag& bag) {
  std::string text = bag.name + ", of " + bag.owner_library + "\n";
  std::vector<std::uint32_t> waiting{bag.schema.top().number};
  std::set<std::uint32_t> shown(waiting.begin(), waiting.end());
  for (std::size_t i = 0; i < waiting.size(); ++i) {
    const RecordType& record = *bag.schema.find(waiting[i]);
    TextTable table = field_table("TYPE");
    std::set<std::uint32_t> referred;
    FieldLister(bag.schema, table, referred).fields(record, 0, 0);
    text += "\nrecord " + type_name(record.number) + ", " + std::to_string(record.size) + " bytes\n" + table.text({});
    for (const std::uint32_t number : referred) {
      if (shown.insert(number).second) {
        waiting.push_back(number);
      }
    }
  }
  return text;
}

std::string record_as_table(const DecodedField& record) {
  TextTable table = field_table("VALUE");
  if (record.form != Form::kRecord) {
    add_lines(table, record, 0);
  }
  for (const DecodedField& member : record.members) {
    add_lines(table, member, 0);
  }
  return table.text({});
}

std::string record_as_json(const Bag& bag, const DecodedField& record) {
  return "{\n" + indented(quoted(bag.name), 1) + ": " + json_value(record, 1) + "\n}\n";
}

}  // namespace oclacp::host
