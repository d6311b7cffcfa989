#include "host/present/answer_writer.h"

namespace oclacp::host {
namespace {

using Index = AnswerData::Index;

// Containers that stand for nothing by themselves are written with something in them alone.
bool is_written(const AnswerData& answer, Index node) {
  if (answer.is_leaf(node) || answer.is_group(node) || answer.shape(node).is_printed_empty) {
    return true;
  }
  Index child = answer.first(node);
  while (child != AnswerData::kRoot && !is_written(answer, child)) {
    child = answer.next(child);
  }
  return child != AnswerData::kRoot;
}

// The first node from `node` on, among its siblings, that is written.
Index find_written(const AnswerData& answer, Index node) {
  while (node != AnswerData::kRoot && !is_written(answer, node)) {
    node = answer.next(node);
  }
  return node;
}

class JsonWriter {
 public:
  JsonWriter(TextSink& sink, const AnswerData& answer) : sink_(sink), answer_(answer) {}

  void write_document() {
    if (answer_.is_empty()) {
      sink_.put("{}\n");
      return;
    }
    sink_.put("{\n");
    write_members(find_written(answer_, answer_.first(AnswerData::kRoot)), 1);
    sink_.put("\n}\n");
  }

 private:
  void write_members(Index member, unsigned level) {
    while (member != AnswerData::kRoot) {
      sink_.indent(level);
      sink_.put(answer_.shape(member).json_name);
      if (answer_.is_group(member)) {
        write_array(member, level);
      } else {
        write_node(member, level);
      }
      member = find_written(answer_, answer_.next(member));
      if (member != AnswerData::kRoot) {
        sink_.put(",\n");
      }
    }
  }

  void write_array(Index group, unsigned level) {
    sink_.put("[\n");
    for (Index entry = answer_.first(group); entry != AnswerData::kRoot;) {
      sink_.indent(level + 1);
      write_node(entry, level + 1);
      entry = answer_.next(entry);
      sink_.put(entry == AnswerData::kRoot ? "\n" : ",\n");
    }
    sink_.indent(level);
    sink_.put(']');
  }

  // A leaf, a container or a list entry, without its name.
  void write_node(Index node, unsigned level) {
    if (answer_.is_leaf(node)) {
      write_value(answer_.value(node));
      return;
    }
    const Index child = find_written(answer_, answer_.first(node));
    if (child == AnswerData::kRoot) {
      sink_.put("{}");
      return;
    }
    sink_.put("{\n");
    write_members(child, level + 1);
    sink_.put('\n');
    sink_.indent(level);
    sink_.put('}');
  }

  void write_value(const CheckedValue& value) {
    if (value.form == ValueForm::kBare) {
      sink_.put(value.text);
    } else if (value.form == ValueForm::kEmpty) {
      sink_.put("[null]");
    } else {
      sink_.put('"');
      sink_.put_json(value.text);
      sink_.put('"');
    }
  }

  TextSink& sink_;
  const AnswerData& answer_;
};

class XmlWriter {
 public:
  XmlWriter(TextSink& sink, const AnswerData& answer) : sink_(sink), answer_(answer) {}

  // Nodes from `node` on, with their siblings.
  void write(Index node, unsigned level) {
    for (; node != AnswerData::kRoot; node = find_written(answer_, answer_.next(node))) {
      if (!answer_.is_group(node)) {
        write_element(node, level);
        continue;
      }
      for (Index entry = answer_.first(node); entry != AnswerData::kRoot; entry = answer_.next(entry)) {
        write_element(entry, level);
      }
    }
  }

 private:
  void write_element(Index node, unsigned level) {
    sink_.indent(level);
    sink_.put(answer_.shape(node).xml_start);
    if (answer_.is_leaf(node)) {
      write_value(node);
      return;
    }
    const Index child = find_written(answer_, answer_.first(node));
    if (child == AnswerData::kRoot) {
      sink_.put("/>\n");
      return;
    }
    sink_.put(">\n");
    write(child, level + 1);
    sink_.indent(level);
    sink_.put(answer_.shape(node).xml_end);
  }

  void write_value(Index leaf) {
    const CheckedValue value = answer_.value(leaf);
    sink_.put(value.xml_names);
    const std::string_view text = value.form == ValueForm::kQualified ? value.xml_text : value.text;
    if (text.empty()) {
      sink_.put("/>\n");
      return;
    }
    sink_.put('>');
    sink_.put_xml(text);
    sink_.put(answer_.shape(leaf).xml_end);
  }

  TextSink& sink_;
  const AnswerData& answer_;
};

}  // namespace

void write_answer(TextSink& sink, const AnswerData& answer, LYD_FORMAT format) {
  if (format == LYD_XML) {
    XmlWriter(sink, answer).write(find_written(answer, answer.first(AnswerData::kRoot)), 0);
  } else {
    JsonWriter(sink, answer).write_document();
  }
  sink.flush();
}

void write_answer(std::FILE* file, const AnswerData& answer, LYD_FORMAT format) {
  FileSink sink(file);
  write_answer(sink, answer, format);
}

std::string print_answer(const AnswerData& answer, LYD_FORMAT format) {
  std::string text;
  StringSink sink(text);
  write_answer(sink, answer, format);
  return text;
}

}  // namespace oclacp::host
