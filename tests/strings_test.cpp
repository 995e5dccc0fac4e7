// String and number helpers at their edges.
#include "support.h"

namespace {

TEST(Strings, compare_looks_at_the_last_pair_only) {
    using Case = std::tuple<const char *, const char *, uint32_t, uint32_t>;
    for (const auto &[a, b, n, verdict] :
         {Case("ab", "xb", 10, 1), Case("ab", "abc", 10, 2), Case("abc", "ab", 10, 2),
          Case("", "x", 0, 0), Case("", "", 5, 1), Case("abX", "abY", 1, 1),
          Case("abX", "abY", 2, 2), Case("abXd", "abYd", 3, 1), Case("ax", "ay", 2, 2),
          Case("", "x", 1, 2)}) {
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
    using Case = std::pair<uint32_t, const char *>;
    for (const auto &[n, copy] :
         {Case(0, "a"), Case(1, "ab"), Case(2, "abc"), Case(9, "abc"), Case(0xFFFFFFFF, "abc")}) {
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
    using Case = std::tuple<int, char, int>;
    for (const auto &[digit, character, result] :
         {Case(0, '0', 1), Case(9, '9', 1), Case(10, '0', -1), Case(-1, '0', -1)}) {
        char written = '#';
        EXPECT_EQ(vel_transform_int_to_asccii(digit, &written), result);
        EXPECT_EQ(written, character) << digit;
    }
    using Other = std::tuple<char, uint32_t, int>;
    for (const auto &[character, value, result] :
         {Other('0', 0, 1), Other('9', 9, 1), Other('/', 0, -1), Other(':', 0, -1),
          Other('\xE4', 0, -1)}) {
        uint32_t read = 77;
        EXPECT_EQ(vel_transform_ascii_to_int(&read, &character), result);
        EXPECT_EQ(read, value) << character;
    }
}

TEST(Numbers, strings_are_read_up_to_nine_digits) {
    using Case = std::pair<const char *, uint32_t>;
    for (const auto &[string, value] :
         {Case("", 0), Case("7", 7), Case("12a4", 1204), Case("-5", 5),
          Case("123456789", 123456789), Case("1234567890", 123456789),
          Case("123456789012", 123456789)}) {
        uint32_t read = 77;
        vel_transform_str_to_num(string, &read);
        EXPECT_EQ(read, value) << string;
    }
}

// Digits are counted in single precision, and numbers beyond 31 bits have none.
TEST(Numbers, are_written_with_a_digit_too_many_below_large_powers_of_ten) {
    using Case = std::pair<uint32_t, const char *>;
    for (const auto &[value, written] :
         {Case(0, "0"), Case(9, "9"), Case(10, "10"), Case(99, "99"), Case(100, "100"),
          Case(65535, "65535"), Case(1000000, "1000000"), Case(2147483647, "2147483647"),
          Case(99999999, "999999999"), Case(999999999, "9999999999"),
          Case(2147483648, "##########")}) {
        char destination[12] = "###########";
        EXPECT_EQ(vel_transform_num_to_str(&value, destination), std::strlen(written)) << value;
        EXPECT_STREQ(destination, written);
    }
}

TEST(Numbers, powers_of_ten_wrap_and_begin_with_ten) {
    using Case = std::pair<uint32_t, uint32_t>;
    for (const auto &[exponent, power] :
         {Case(0, 10), Case(1, 10), Case(2, 100), Case(9, 1000000000), Case(10, 1410065408),
          Case(32, 0), Case(4000000000, 0)}) {
        EXPECT_EQ(vel_zehnerpotenz(exponent), power) << exponent;
    }
}

} // namespace
