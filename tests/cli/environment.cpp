#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// The settings and schemes of whoever runs the tests must not have a say in them.
class NoUser : public testing::Environment {
public:
    void SetUp() override { ::setenv("XDG_CONFIG_HOME", "/nonexistent", 1); }
};

[[maybe_unused]] const testing::Environment* const kNoUser = testing::AddGlobalTestEnvironment(new NoUser);

} // namespace
