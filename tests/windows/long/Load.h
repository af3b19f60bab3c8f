#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace driver {

// Keeps every processor busy while the object exists, at the priority of other programs.
// JOTWRIGHT_LOAD is the number of busy threads; set it to 0 if other programs make the load.
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

// A number from the environment, or otherwise if the variable is not set.
int Number(const char* variable, int otherwise);

}  // namespace driver
