// What GoogleTest needs to know about a compiler without the threads of the standard library. Its tests run on one
// thread here, so nobody ever waits for a notification.
#ifndef GOOGLETEST_INCLUDE_GTEST_INTERNAL_CUSTOM_GTEST_PORT_H_
#define GOOGLETEST_INCLUDE_GTEST_INTERNAL_CUSTOM_GTEST_PORT_H_

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing {
namespace internal {

class Notification {
  public:
    void Notify() {}
    void WaitForNotification() {}
};

}  // namespace internal
}  // namespace testing

#endif  // GOOGLETEST_INCLUDE_GTEST_INTERNAL_CUSTOM_GTEST_PORT_H_
