#include "host/devices/linux/link_snapshot.h"

#include <fcntl.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "host/base/error.h"
#include "host/files/system_call.h"

namespace oclacp::host {
namespace {

bool dump_links_once(NetlinkSocket& socket, std::vector<Link>& links) {
  links.clear();
  NetlinkRequest request(RTM_GETLINK, 0);
  request.put_header<ifinfomsg>();
  // Counters of frames, which nobody asked for, make up much of the answer.
  request.put_number<std::uint32_t>(IFLA_EXT_MASK, RTEXT_FILTER_SKIP_STATS);
  return socket.dump(request, [&](const nlmsghdr& message) {
    if (std::optional<Link> link = parse_link(message)) {
      links.push_back(std::move(*link));
    }
  });
}

bool dump_statistics_once(NetlinkSocket& socket, std::unordered_map<int, LacpStatistics>& statistics) {
  statistics.clear();
  NetlinkRequest request(RTM_GETSTATS, 0);
  request.put_header<if_stats_msg>().filter_mask = IFLA_STATS_FILTER_BIT(IFLA_STATS_LINK_XSTATS_SLAVE);
  return socket.dump(request, [&](const nlmsghdr& message) {
    if (const std::optional<LacpStatistics> found = parse_lacp_statistics(message)) {
      statistics[found->index] = *found;
    }
  });
}

// Nothing when there is no such file.
std::optional<std::string> read_text(const std::string& file) {
  const FileDescriptor descriptor(retry_interrupted([&] { return open(file.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!descriptor.is_open()) {
    if (errno == ENOENT) {
      return std::nullopt;
    }
    throw system_error(errno, file);
  }
  std::string text;
  std::string piece(65536, '\0');
  while (true) {
    const ssize_t size = retry_interrupted([&] { return read(descriptor.number(), piece.data(), piece.size()); });
    if (size == 0) {
      return text;
    }
    if (size < 0) {
      throw system_error(errno, file);
    }
    text.append(piece, 0, static_cast<std::size_t>(size));
  }
}

// Whether each bond had its text. A bond that has none although others could have is gone, or has another name now.
bool read_texts_once(const std::string& folder, LinkSnapshot& snapshot) {
  snapshot.texts.clear();
  std::error_code ignored;
  snapshot.has_texts = std::filesystem::is_directory(folder, ignored);
  for (const Link& link : snapshot.links) {
    if (!snapshot.has_texts || !link.is_lacp_bond()) {
      continue;
    }
    const std::optional<std::string> text = read_text(folder + "/" + link.name);
    if (!text) {
      return false;
    }
    snapshot.texts[link.index] = parse_bonding_text(*text);
  }
  return true;
}

}  // namespace

const Link* LinkSnapshot::find(std::string_view name) const {
  const auto found = std::find_if(links.begin(), links.end(), [&](const Link& link) { return link.name == name; });
  return found == links.end() ? nullptr : &*found;
}

const Link* LinkSnapshot::find(int index) const {
  const auto found = std::find_if(links.begin(), links.end(), [&](const Link& link) { return link.index == index; });
  return found == links.end() ? nullptr : &*found;
}

LinkSnapshot read_links(NetlinkSocket& socket, const std::string& bonding_texts) {
  LinkSnapshot snapshot;
  repeat_until_unchanged([&] {
    if (!dump_links_once(socket, snapshot.links)) {
      return false;
    }
    if (std::none_of(snapshot.links.begin(), snapshot.links.end(),
                     [](const Link& link) { return link.is_lacp_bond(); })) {
      return true;
    }
    return dump_statistics_once(socket, snapshot.statistics) && read_texts_once(bonding_texts, snapshot);
  });
  return snapshot;
}

std::vector<Link> dump_links(NetlinkSocket& socket) {
  std::vector<Link> links;
  repeat_until_unchanged([&] { return dump_links_once(socket, links); });
  return links;
}

}  // namespace oclacp::host
