#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace driver {

// Keeps every processor busy as long as it lives, at the priority of any other program;
// JOTWRIGHT_LOAD says how many, 0 where other programs do so already.
class Load {
  public:
    Load();
    ~Load();
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

  private:
    std::atomic<bool> ends = false;
    std::vector<std::thread> threads;
};

// A number from the environment, this one where there is none.
int Number(const char* variable, int otherwise);

}  // namespace driver
