#include "support/TestPaths.h"

namespace dayward {

std::string testData()
{
    return DAYWARD_TEST_DATA;
}

std::string testResources()
{
    return DAYWARD_TEST_RESOURCES;
}

}  // namespace dayward
