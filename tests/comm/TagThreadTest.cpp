#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "comm/TagThread.h"
#include "support/PostedCalls.h"

namespace zek {
namespace {

// What an object shares with its test, which it may outlive.
struct Seen {
  std::promise<void> entered;
  std::promise<void> release;
  std::promise<void> destroyed;
  std::set<std::thread::id> threads;  // of the object; read it after its end
};

// Its reads block until they are released.
class BlockingTags final : public TagObject {
 public:
  explicit BlockingTags(std::shared_ptr<Seen> seen) : seen_(std::move(seen)) { Note(); }
  BlockingTags(const BlockingTags&) = delete;
  BlockingTags& operator=(const BlockingTags&) = delete;
  ~BlockingTags() override {
    Note();
    seen_->destroyed.set_value();
  }
  bool Create() override { return Note(); }
  std::int16_t Open(const std::string&, const std::string&, const std::string&) override {
    return 0;
  }
  std::int16_t TagWrite(const std::string& tag, const std::string& /*value*/) override {
    return Note() ? static_cast<std::int16_t>(tag.size()) : std::int16_t{0};
  }
  std::string TagRead(const std::string& /*tag*/) override {
    seen_->entered.set_value();
    seen_->release.get_future().wait();
    return "read";
  }
  std::int16_t Close() override { return 1; }
  std::string TakeFault() override { return "fault"; }

 private:
  bool Note() { return seen_->threads.insert(std::this_thread::get_id()), true; }

  std::shared_ptr<Seen> seen_;
};

class TagThreadTest : public ::testing::Test {
 protected:
  void Read(TagThread& tags) {
    tags.Begin([](TagObject& object, TagAnswer& answer) { answer.text = object.TagRead({}); },
               [this](const TagAnswer& answer) { got.push_back(answer.text); });
    seen->entered.get_future().wait();
  }
  void Write(TagThread& tags, const std::string& tag) {
    tags.Begin(
        [tag](TagObject& object, TagAnswer& answer) { answer.status = object.TagWrite(tag, {}); },
        [this](const TagAnswer& answer) { got.push_back(std::to_string(answer.status)); });
  }

  std::shared_ptr<Seen> seen = std::make_shared<Seen>();
  TagThread::Make make = [seen = seen] { return std::make_unique<BlockingTags>(seen); };
  test::PostedCalls loop;
  std::vector<std::string> got;
};

TEST_F(TagThreadTest, CallsAreMadeInOrderAndInOneThread) {
  {
    TagThread tags(
        make, [] {}, loop.Post());
    const TagAnswer created = tags.Create();
    EXPECT_TRUE(created.arrived && created.status != 0 && created.fault == "fault");
    loop.Run();
    Read(tags);  // returns although the call blocks
    Write(tags, "a");
    Write(tags, "bb");
    EXPECT_TRUE(loop.IsEmpty() && got.empty());
    seen->release.set_value();
    while (got.size() < 3) loop.Run();
    EXPECT_EQ(got, (std::vector<std::string>{"read", "1", "2"}));
  }
  seen->destroyed.get_future().wait();
  EXPECT_EQ(seen->threads.size(), 1U);
  EXPECT_FALSE(seen->threads.contains(std::this_thread::get_id()));
}

TEST_F(TagThreadTest, TheEndDoesNotWaitForACallThatBlocks) {
  {
    TagThread tags(
        make, [] {}, loop.Post(), std::chrono::milliseconds{0});
    Read(tags);
    Write(tags, "never made");
  }
  seen->threads.clear();
  seen->release.set_value();
  seen->destroyed.get_future().wait();
  EXPECT_EQ(seen->threads.size(), 1U) << "its end alone";
  EXPECT_TRUE(loop.IsEmpty());
}

}  // namespace
}  // namespace zek
