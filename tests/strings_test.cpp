// String and number helpers at their edges.
#include "support.h"

namespace {

TEST(Strings, compare_tells_about_the_last_pair_only) {
    const struct {
        const char *a, *b;
        uint32_t n, verdict;
    } cases[] = {{"ab", "xb", 10, 1},  {"ab", "abc", 10, 2},   {"abc", "ab", 10, 2},
                 {"", "x", 0, 0},      {"", "", 5, 1},         {"abX", "abY", 1, 1},
                 {"abX", "abY", 2, 2}, {"abXd", "abYd", 3, 1}, {"ax", "ay", 2, 2},
                 {"", "x", 1, 2}};
    for (const auto &c : cases)
        EXPECT_EQ(vel_strcmp(c.a, c.b, c.n), c.verdict) << c.a << " " << c.b;
}

TEST(Strings, lengths_count_characters_before_the_nul) {
    EXPECT_EQ(vel_count_string_size_without_zero("abc"), 3U);
    EXPECT_EQ(vel_get_lastposition("abc"), 3U);
    EXPECT_EQ(vel_get_lastposition_before_zero("abc"), 2U);
    EXPECT_EQ(vel_get_lastposition_before_zero("a"), 0U);
    EXPECT_EQ(vel_get_lastposition_before_zero(""), 0xFFFFFFFFU);
}

TEST(Strings, partial_copies_end_with_a_nul) {
    const struct {
        uint32_t n;
        const char *copy;
    } cases[] = {{0, "a"}, {1, "ab"}, {2, "abc"}, {9, "abc"}, {0xFFFFFFFF, "abc"}};
    for (const auto &c : cases) {
        char destination[8] = "#######";
        vel_copy_st_first_part(c.n, "abc", destination);
        EXPECT_STREQ(destination, c.copy) << c.n;
    }
    char destination[8] = "#######";
    EXPECT_EQ(vel_copy_st_last_part("xyz", destination), 3U);
    EXPECT_EQ(std::string(destination, 5), std::string("xyz\0#", 5));
}

TEST(Strings, partial_copies_move_a_string_to_the_left) {
    char field[40] = "#0123456789abcdefghijklmnopqrstuvwxyz";
    vel_copy_st_first_part(34, field + 1, field);
    EXPECT_STREQ(field, "0123456789abcdefghijklmnopqrstuvwxy");
    EXPECT_EQ(vel_copy_st_last_part(field + 3, field), 32U);
    EXPECT_STREQ(field, "3456789abcdefghijklmnopqrstuvwxy");
}

TEST(Numbers, digits_are_converted_both_ways) {
    for (const auto &[digit, character, result] :
         {std::tuple{0, '0', 1}, {9, '9', 1}, {10, '0', -1}, {12, '0', -1}, {-1, '0', -1}}) {
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

TEST(Numbers, are_written_with_digits_counted_in_single_precision) {
    const struct {
        uint32_t value;
        const char *written;
        int32_t digits;
    } cases[] = {{0, "0", 1},
                 {9, "9", 1},
                 {10, "10", 2},
                 {99, "99", 2},
                 {100, "100", 3},
                 {65535, "65535", 5},
                 {1000000, "1000000", 7},
                 {2147483647, "2147483647", 10},
                 {99999999, "999999999", 9},
                 {999999999, "9999999999", 10}};
    for (const auto &c : cases) {
        char destination[12] = "###########";
        EXPECT_EQ(vel_transform_num_to_str(&c.value, destination), c.digits) << c.value;
        EXPECT_STREQ(destination, c.written);
    }
    const uint32_t large = 2147483648U;
    char destination[12] = "###########";
    EXPECT_EQ(vel_transform_num_to_str(&large, destination), 10);
    EXPECT_STREQ(destination, "##########");
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
