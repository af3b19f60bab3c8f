#include "tests/windows/DriverTest.h"

namespace driver {

class Tools : public DriverTest {};

}  // namespace driver
