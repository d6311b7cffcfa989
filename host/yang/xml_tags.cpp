#include "host/yang/xml_tags.h"

#include <algorithm>

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

bool XmlTags::skip_to(std::string_view end) {
  const std::size_t found = text_.find(end, at_);
  at_ = found == std::string_view::npos ? text_.size() : found + end.size();
  return found != std::string_view::npos;
}

bool XmlTags::next(XmlTag& tag) {
  while ((at_ = std::min(text_.find('<', at_), text_.size())) < text_.size()) {
    const std::string_view rest = text_.substr(at_);
    if (rest.starts_with("<!--")) {
      skip_to("-->");
    } else if (rest.starts_with("<![CDATA[")) {
      skip_to("]]>");
    } else if (rest.starts_with("<?")) {
      skip_to("?>");
    } else {
      break;
    }
  }
  if (at_ == text_.size()) {
    return false;
  }
  tag.begin = at_++;
  tag.kind = XmlTag::Kind::kStart;
  if (at_ < text_.size() && text_[at_] == '/') {
    tag.kind = XmlTag::Kind::kEnd;
    ++at_;
  }
  const std::size_t name = at_;
  at_ = std::min(text_.find_first_of(" \t\r\n/>", at_), text_.size());
  tag.name = text_.substr(name, at_ - name);
  return take_attributes(tag);
}

bool XmlTags::take_attributes(XmlTag& tag) {
  tag.attributes.clear();
  while ((at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size())) < text_.size()) {
    if (text_[at_] == '>') {
      tag.end = ++at_;
      return true;
    }
    if (text_[at_] == '/') {
      tag.kind = XmlTag::Kind::kEmpty;
      ++at_;
      continue;
    }
    const std::size_t name_end = text_.find_first_of(" \t\r\n=/>", at_);
    const std::size_t quote = text_.find_first_of("\"'>", at_);
    if (quote == std::string_view::npos || text_[quote] == '>') {
      return false;
    }
    const std::size_t end = text_.find(text_[quote], quote + 1);
    if (end == std::string_view::npos) {
      return false;
    }
    tag.attributes.emplace_back(text_.substr(at_, name_end - at_), text_.substr(quote + 1, end - quote - 1));
    at_ = end + 1;
  }
  return false;
}

}  // namespace oclacp::host
