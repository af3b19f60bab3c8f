#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace driver {

// Keeps every processor busy at normal priority while the object exists. JOTWRIGHT_LOAD is the
// number of busy threads. Set it to 0 if other programs keep the processors busy.
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

// A number from the environment. If the variable is not set, returns otherwise.
int Number(const char* variable, int otherwise);

}  // namespace driver
