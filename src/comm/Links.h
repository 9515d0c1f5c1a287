#pragma once

#include <memory>
#include <string>

#include "comm/Link.h"
#include "comm/TagLink.h"

namespace zek {

/// The transports below the links.
struct Transports {
  Transport& socket;
  Transport& dde;
  TagServer& tags;
};

/// All links of a session. Chooses the link of a topic.
class Links {
 public:
  Links(const Transports& transports, LinkEvents& events, const LinkParts& parts);

  /// Returns the link for topics with that address.
  Link& To(const std::string& address) const;

 private:
  const Settings& settings_;
  std::unique_ptr<Link> socket_;
  std::unique_ptr<Link> dde_;
  std::unique_ptr<Link> tag_;
};

}  // namespace zek
