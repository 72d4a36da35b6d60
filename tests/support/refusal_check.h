#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace qv::test {

// A validation's outcome against what was expected: no refusal when message is empty, otherwise that message
// sending the user to that field, at that character (-1: no character).
template <typename Refusal, typename Field>
void expect_refusal(const std::optional<Refusal>& refusal, std::string_view message, Field field, int position = -1)
{
    if (message.empty()) {
        EXPECT_FALSE(refusal) << refusal->refusal.message;
        return;
    }
    ASSERT_TRUE(refusal) << "expected: " << message;
    EXPECT_EQ(refusal->refusal.message, message);
    EXPECT_EQ(refusal->field, field) << message;
    EXPECT_EQ(refusal->refusal.position, position) << message;
}

} // namespace qv::test
