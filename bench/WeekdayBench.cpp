#include "Limits.h"
namespace zek::bench {
void AddWeekday(std::vector<Limit>&) {}
}  // namespace zek::bench
