#include "comm/Links.h"

#include "comm/DdeLink.h"
#include "comm/SocketLink.h"
#include "comm/TagLink.h"

namespace zek {

Links::Links(const Transports& transports, LinkEvents& events, const LinkParts& parts)
    : settings_(parts.settings),
      socket_(std::make_unique<SocketLink>(transports.socket, events, parts)),
      dde_(std::make_unique<DdeLink>(transports.dde, events, parts)),
      tag_(std::make_unique<TagLink>(transports.tags, events, parts)) {}

Link& Links::To(const std::string& address) const {
  if (settings_.TagMode) return *tag_;
  return address.find(':') == std::string::npos ? *dde_ : *socket_;
}

}  // namespace zek
