#pragma once

#include <memory>
#include <string>

#include "comm/Link.h"
#include "comm/TagServer.h"

namespace zek {

/// What the links are built over.
struct Transports {
  Transport& socket;
  Transport& dde;
  TagServer& tags;
};

/// The links of a session, and which of them leads to a topic.
class Links {
 public:
  Links(const Transports& transports, LinkEvents& events, const LinkParts& parts);

  /// The link of topics with that address.
  Link& To(const std::string& address) const;

 private:
  const Settings& settings_;
  std::unique_ptr<Link> socket_;
  std::unique_ptr<Link> dde_;
  std::unique_ptr<Link> tag_;
};

}  // namespace zek
