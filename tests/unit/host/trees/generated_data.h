// Data of any schema, drawn by chance.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// Texts that types treat differently: every escape, numbers in and out of canonical form and range, names with and
// without modules, letters of every length in UTF-8, and one that is longer than any buffer.
const std::vector<std::string>& telling_texts();

// One of them that the leaf's type takes; long ones now and then.
const std::string& draw_value(std::mt19937& random, const lysc_node* leaf);

class DataGenerator {
 public:
  DataGenerator(const ly_ctx* context, unsigned seed) : context_(context), random_(seed) {}

  // Some of the nodes of the context's modules, with values that their types take. libyang's trees are as an answer
  // would be made: not validated, without defaults.
  TreePtr make();

 private:
  void add_children(const lysc_node* schema, const lys_module* module, lyd_node* parent, unsigned level);
  void add(const lysc_node* schema, lyd_node* parent, unsigned level);
  void add_leaf(const lysc_node* schema, lyd_node* parent);
  void add_entry(const lysc_node* schema, lyd_node* parent, unsigned level);
  void keep_top(lyd_node* made);
  bool happens(double chance) { return std::bernoulli_distribution(chance)(random_); }

  const ly_ctx* context_;
  std::mt19937 random_;
  TreePtr top_;
};

}  // namespace oclacp::host
