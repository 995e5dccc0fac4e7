// String and number helpers at their edges.
#include "support.h"

namespace {

TEST(Strings, compare_looks_at_the_last_pair_only) {
    for (const auto &[a, b, n, verdict] : {std::tuple{"ab", "xb", 10U, 1U},
                                           {"ab", "abc", 10U, 2U},
                                           {"abc", "ab", 10U, 2U},
                                           {"", "x", 0U, 0U},
                                           {"", "", 5U, 1U},
                                           {"abX", "abY", 1U, 1U},
                                           {"abX", "abY", 2U, 2U},
                                           {"abXd", "abYd", 3U, 1U},
                                           {"ax", "ay", 2U, 2U},
                                           {"", "x", 1U, 2U}}) {
        EXPECT_EQ(vel_strcmp(a, b, n), verdict) << a << " " << b;
    }
}

TEST(Strings, lengths_count_characters_before_the_nul) {
    for (const auto &[string, length] : {std::pair{"abc", 3U}, {"a", 1U}, {"", 0U}}) {
        EXPECT_EQ(vel_count_string_size_without_zero(string), length);
        EXPECT_EQ(vel_get_lastposition(string), length);
        EXPECT_EQ(vel_get_lastposition_before_zero(string), length - 1);
    }
}

TEST(Strings, partial_copies_end_with_a_nul_and_may_move_a_string_to_the_left) {
    for (const auto &[n, copy] :
         {std::pair{0U, "a"}, {1U, "ab"}, {2U, "abc"}, {9U, "abc"}, {0xFFFFFFFFU, "abc"}}) {
        char destination[8] = "#######";
        vel_copy_st_first_part(n, "abc", destination);
        EXPECT_STREQ(destination, copy) << n;
    }
    char destination[8] = "#######", field[40] = "#0123456789abcdefghijklmnopqrstuvwxyz";
    EXPECT_EQ(vel_copy_st_last_part("xyz", destination), 3U);
    EXPECT_EQ(std::string(destination, 5), std::string("xyz\0#", 5));
    vel_copy_st_first_part(34, field + 1, field);
    EXPECT_STREQ(field, "0123456789abcdefghijklmnopqrstuvwxy");
    EXPECT_EQ(vel_copy_st_last_part(field + 3, field), 32U);
    EXPECT_STREQ(field, "3456789abcdefghijklmnopqrstuvwxy");
}

TEST(Numbers, digits_are_converted_both_ways) {
    for (const auto &[digit, character, result] :
         {std::tuple{0, '0', 1}, {9, '9', 1}, {10, '0', -1}, {-1, '0', -1}}) {
        char written = '#';
        EXPECT_EQ(vel_transform_int_to_asccii(digit, &written), result);
        EXPECT_EQ(written, character) << digit;
    }
    for (const auto &[character, value, result] :
         {std::tuple{'0', 0U, 1}, {'9', 9U, 1}, {'/', 0U, -1}, {':', 0U, -1}, {'\xE4', 0U, -1}}) {
        uint32_t read = 77;
        EXPECT_EQ(vel_transform_ascii_to_int(&read, &character), result);
        EXPECT_EQ(read, value) << character;
    }
}

TEST(Numbers, strings_are_read_up_to_nine_digits) {
    for (const auto &[string, value] : {std::pair{"", 0U},
                                        {"7", 7U},
                                        {"12a4", 1204U},
                                        {"-5", 5U},
                                        {"123456789", 123456789U},
                                        {"1234567890", 123456789U},
                                        {"123456789012", 123456789U}}) {
        uint32_t read = 77;
        vel_transform_str_to_num(string, &read);
        EXPECT_EQ(read, value) << string;
    }
}

// Digits are counted in single precision, and numbers beyond 31 bits have none.
TEST(Numbers, are_written_with_a_digit_too_many_below_large_powers_of_ten) {
    for (const auto &[value, written] : {std::pair{0U, "0"},
                                         {9U, "9"},
                                         {10U, "10"},
                                         {99U, "99"},
                                         {100U, "100"},
                                         {65535U, "65535"},
                                         {1000000U, "1000000"},
                                         {2147483647U, "2147483647"},
                                         {99999999U, "999999999"},
                                         {999999999U, "9999999999"},
                                         {2147483648U, "##########"}}) {
        char destination[12] = "###########";
        EXPECT_EQ(vel_transform_num_to_str(&value, destination), std::strlen(written)) << value;
        EXPECT_STREQ(destination, written);
    }
}

TEST(Numbers, powers_of_ten_wrap_and_begin_with_ten) {
    for (const auto &[exponent, power] : {std::pair{0U, 10U},
                                          {1U, 10U},
                                          {2U, 100U},
                                          {9U, 1000000000U},
                                          {10U, 1410065408U},
                                          {32U, 0U},
                                          {4000000000U, 0U}}) {
        EXPECT_EQ(vel_zehnerpotenz(exponent), power) << exponent;
    }
}

} // namespace
