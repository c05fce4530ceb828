#include "tests/engine/small_stack.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace plotvane::engine::test {

#ifdef _WIN32

namespace {

DWORD WINAPI CallFunction(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return 0;
}

}  // namespace

void RunWithStack(std::size_t bytes, const std::function<void()>& function) {
  void* argument = const_cast<std::function<void()>*>(&function);
  const HANDLE thread =
      ::CreateThread(nullptr, bytes, &CallFunction, argument, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ASSERT_NE(thread, nullptr);
  ::WaitForSingleObject(thread, INFINITE);
  ::CloseHandle(thread);
}

#else

namespace {

void* CallFunction(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return nullptr;
}

}  // namespace

void RunWithStack(std::size_t bytes, const std::function<void()>& function) {
  pthread_attr_t attributes;
  ASSERT_EQ(::pthread_attr_init(&attributes), 0);
  ASSERT_EQ(::pthread_attr_setstacksize(&attributes, bytes), 0);
  pthread_t thread;
  void* argument = const_cast<std::function<void()>*>(&function);
  ASSERT_EQ(::pthread_create(&thread, &attributes, &CallFunction, argument), 0);
  ::pthread_join(thread, nullptr);
  ::pthread_attr_destroy(&attributes);
}

#endif

}  // namespace plotvane::engine::test
