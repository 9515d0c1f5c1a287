#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zek {

/// The tag-access object `CTAPIX.CTAPI`; its methods are called by name. Each call blocks until the
/// object answers. Zero means failure. A call that the object does not know, or that raises an
/// exception, also fails.
class TagObject {
 public:
  virtual ~TagObject() = default;
  /// Creates the object; returns false if the system does not have it. `TakeFault` then gives the
  /// reason, with the system's code at its end: "(80040154)".
  virtual bool Create() = 0;
  virtual std::int16_t Open(const std::string& computer, const std::string& user,
                            const std::string& password) = 0;
  virtual std::int16_t TagWrite(const std::string& tag, const std::string& value) = 0;
  virtual std::string TagRead(const std::string& tag) = 0;
  virtual std::int16_t Close() = 0;
  /// Returns and clears the first fault other than a returned zero: the method and the object's or
  /// the system's message (windows-1252); "" without a fault. It never contains the password.
  virtual std::string TakeFault() { return {}; }
};

/// What came of a call.
struct TagAnswer {
  bool arrived = false;  // false: the call has not returned yet
  std::int16_t status = 0;
  std::string text;   // of `TagRead`
  std::string fault;  // see `TagObject::TakeFault`
};

/// Takes calls for the tag object and returns at once. The calls are made one after the other, in
/// the order in which they came.
class TagServer {
 public:
  /// Makes one call and stores its status or text.
  using Call = std::function<void(TagObject& object, TagAnswer& answer)>;
  /// Gets the answer in the event loop, if the loop runs until then.
  using Done = std::function<void(const TagAnswer& answer)>;

  virtual ~TagServer() = default;

  /// Creates the object and waits for that, at the start of the program, which may have no event
  /// loop yet. The status is 0 on failure; the answer has not arrived if it took too long.
  virtual TagAnswer Create() = 0;

  virtual void Begin(Call call, Done done) = 0;
};

}  // namespace zek
