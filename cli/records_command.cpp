#include "cli/records_command.h"

#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/locations.h"
#include "host/devices/interface_table.h"
#include "host/devices/open_device.h"
#include "host/files/read_file.h"
#include "host/records/record_printer.h"
#include "host/translation/record_registration.h"
#include "host/translation/translator.h"

namespace oclacp::cli {
namespace {

const host::Bag& bag_named(const host::RecordRegistry& registry, const std::string& name) {
  const host::Bag* bag = registry.find(name);
  if (bag == nullptr) {
    throw host::Error(host::ErrorKind::kInvalidValue, name + ": no such bag; `oclacp records list` shows all");
  }
  return *bag;
}

class RecordsCommand {
 public:
  // Defines the command.
  explicit RecordsCommand(CLI::App& app);

  CLI::App* app() { return command_; }

  // Does what the parsed command line says, and returns what is to be printed. Throws host::Error.
  [[nodiscard]] std::string run() const;

 private:
  void define_decode();
  [[nodiscard]] std::string decode() const;

  CLI::App* command_;
  CLI::App* list_;
  CLI::App* show_;
  CLI::App* decode_;
  std::vector<std::string> modules_;
  std::string name_;
  std::string file_;
  std::string format_ = "table";
  std::string device_;
};

RecordsCommand::RecordsCommand(CLI::App& app)
    : command_(app.add_subcommand("records", "Show the records that the module describes, and decode their bytes")),
      list_(command_->add_subcommand("list", "List the bags with the sizes of their records")),
      show_(command_->add_subcommand("show", "Show the fields of a bag's records with offset, size and type")),
      decode_(command_->add_subcommand("decode", "Decode the bytes of one record")) {
  command_->require_subcommand(1);
  for (CLI::App* command : {list_, show_, decode_}) {
    add_modules(*command, modules_);
  }
  for (CLI::App* command : {show_, decode_}) {
    command->add_option("NAME", name_, "The bag, as in `oclacp records list`")->required();
  }
  define_decode();
}

void RecordsCommand::define_decode() {
  decode_->add_option("FILE", file_, "The bytes of one record; - for the standard input")->required();
  decode_->add_option("--format", format_, "The format of the decoded record; a table by default")
      ->type_name("table|json")
      ->check(CLI::IsMember({"table", "json"}).description(""));
  decode_->add_option("-d", device_, "Name interfaces by the inventory of this device: a folder with platform.json")
      ->type_name("DIR");
}

std::string RecordsCommand::run() const {
  if (decode_->parsed()) {
    return decode();
  }
  const host::RecordRegistry& registry = host::register_records_of(shipped_schemas(), modules_or_default(modules_));
  return show_->parsed() ? host::show_bag(bag_named(registry, name_)) : host::list_bags(registry);
}

std::string RecordsCommand::decode() const {
  const host::Bag& bag = bag_named(host::register_records_of(shipped_schemas(), modules_or_default(modules_)), name_);
  const std::string bytes = host::read_text_file(file_, bag.schema.top().size);
  host::InterfaceNames interfaces = host::interface_names(host::EmptySnapshot());
  if (!device_.empty()) {
    const host::Translator translator({shipped_schemas(), ""}, modules_or_default(modules_));
    interfaces = host::interface_names(*host::open_device(translator.native_context(), device_)->snapshot());
  }
  const host::DecodedField record = host::decode_record(bag, bytes, interfaces);
  return format_ == "json" ? host::record_as_json(bag, record) : host::record_as_table(record);
}

}  // namespace

void define_records(CLI::App& app) {
  const auto command = std::make_shared<RecordsCommand>(app);
  command->app()->callback([command] { print(command->run()); });
}

}  // namespace oclacp::cli
