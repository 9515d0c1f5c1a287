#pragma once

#include <cstdint>
#include <string>

namespace zek {

/// The tag-access object `CTAPIX.CTAPI`, called by name. Each call blocks until the object
/// answers. Zero means failure; a call that the object does not know or that raises fails too.
class TagServer {
 public:
  virtual ~TagServer() = default;
  /// Creates the object; false when the system has none.
  virtual bool Create() = 0;
  virtual std::int16_t Open(const std::string& computer, const std::string& user,
                            const std::string& password) = 0;
  virtual std::int16_t TagWrite(const std::string& tag, const std::string& value) = 0;
  virtual std::string TagRead(const std::string& tag) = 0;
  virtual std::int16_t Close() = 0;
  /// The first call that failed other than by answering zero since this was asked last, and why, in
  /// the object's or the system's words (windows-1252); "" when there is none. It never holds the
  /// password.
  virtual std::string TakeFault() { return {}; }
};

}  // namespace zek
