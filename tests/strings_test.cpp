// String and number helpers, and conversions of characters, at their edges.
#include "support.h"

namespace {

TEST(Strings, compare_looks_at_the_last_pair_only) {
    using Case = std::tuple<const char *, const char *, uint32_t, uint32_t>;
    for (const auto &[a, b, n, verdict] :
         {Case("ab", "xb", 10, 1), Case("ab", "abc", 10, 2), Case("abc", "ab", 10, 2),
          Case("", "x", 0, 0), Case("a", "b", 0, 2), Case("abX", "abY", 1, 1),
          Case("abX", "abY", 2, 2)}) {
        EXPECT_EQ(vel_strcmp(a, b, n), verdict) << a << " " << b;
    }
}

TEST(Strings, lengths_count_characters_before_the_nul) {
    for (const auto &[string, length] : {std::pair{"abc", 3U}, {"", 0U}}) {
        EXPECT_EQ(vel_get_lastposition(string), length);
        EXPECT_EQ(vel_count_string_size_without_zero(string), length);
        EXPECT_EQ(vel_get_lastposition_before_zero(string), length - 1);
    }
}

TEST(Strings, partial_copies_end_with_a_nul_and_may_move_a_string_to_the_left) {
    for (const auto &[n, copy] : {std::pair{0U, "a"}, {1U, "ab"}, {0xFFFFFFFFU, "abc"}}) {
        char destination[8] = "#######";
        vel_copy_st_first_part(n, "abc", destination);
        EXPECT_STREQ(destination, copy) << n;
    }
    char field[40] = "#0123456789abcdefghijklmnopqrstuvwxyz";
    vel_copy_st_first_part(34, field + 1, field);
    EXPECT_STREQ(field, "0123456789abcdefghijklmnopqrstuvwxy");
    EXPECT_EQ(vel_copy_st_last_part(field + 3, field), 32U);
    EXPECT_STREQ(field, "3456789abcdefghijklmnopqrstuvwxy");
}

TEST(Numbers, digits_are_converted_both_ways) {
    for (const auto &[digit, result] : {std::pair{-1, -1}, {0, 1}, {9, 1}, {10, -1}}) {
        const int known = result == 1 ? digit : 0;
        const auto character = static_cast<char>('0' + digit);
        char written = '#';
        uint32_t read = 77;
        EXPECT_EQ(vel_transform_int_to_asccii(digit, &written), result);
        EXPECT_EQ(vel_transform_ascii_to_int(&read, &character), result);
        EXPECT_EQ(std::tuple(written, read), std::tuple('0' + known, test::u32(known)));
    }
}

TEST(Numbers, strings_are_read_up_to_nine_digits) {
    for (const auto &[string, value] :
         {std::pair{"", 0U}, {"12a4", 1204U}, {"-5", 5U}, {"1234567890", 123456789U}}) {
        uint32_t read = 77;
        vel_transform_str_to_num(string, &read);
        EXPECT_EQ(read, value) << string;
    }
}

// Digits are counted in single precision, and numbers beyond 31 bits have none.
TEST(Numbers, are_written_with_a_digit_too_many_below_large_powers_of_ten) {
    using Case = std::pair<uint32_t, const char *>;
    for (const auto &[value, written] :
         {Case(0, "0"), Case(9, "9"), Case(10, "10"), Case(99, "99"), Case(65535, "65535"),
          Case(2147483647, "2147483647"), Case(99999999, "999999999"),
          Case(2147483648, "##########")}) {
        char destination[12] = "###########";
        EXPECT_EQ(vel_transform_num_to_str(&value, destination), std::strlen(written)) << value;
        EXPECT_STREQ(destination, written);
    }
}

TEST(Numbers, powers_of_ten_wrap_and_begin_with_ten) {
    for (const auto &[exponent, power] :
         {std::pair{0U, 10U}, {1U, 10U}, {2U, 100U}, {10U, 1410065408U}, {4000000000U, 0U}})
        EXPECT_EQ(vel_zehnerpotenz(exponent), power) << exponent;
}

// What is converted, the room, the result, how many are lost, and where the first of them is.
using Conversion = std::tuple<const char *, size_t, const char *, size_t, size_t>;
using Converter = size_t(const char *, char *, size_t, size_t *);

void expect_conversions(Converter &convert, const std::vector<Conversion> &cases) {
    for (const auto &[from, size, result, lost, wanted_first] : cases) {
        const std::string untouched = "########";
        std::string to = untouched;
        size_t first_lost = 99;
        EXPECT_EQ(convert(from, to.data(), size, &first_lost), lost) << from;
        EXPECT_EQ(first_lost, wanted_first) << from;
        const std::string written = size == 0 ? "" : std::string(result) + '\0';
        EXPECT_EQ(to, written + untouched.substr(written.size())) << from;
    }
    char to[] = "ab";
    EXPECT_EQ(convert("\x41", nullptr, 8, nullptr), 1U);
    EXPECT_EQ(convert(nullptr, to, 3, nullptr), 0U);
    EXPECT_STREQ(to, "");
}

TEST(Characters, beyond_latin1_malformed_or_without_room_are_left_out_and_counted) {
    expect_conversions(
        vel_from_utf8,
        {
            {"a\n\x7F\xC2\x80\xC3\xBF", 8, "a\n\x7F\x80\xFF", 0, 7},
            {"\xC3\xBF\xC4\x80z", 8, "\xFFz", 1, 2}, // U+0100, the first beyond
            {"\xE2\x82\xAC-\xF0\x9F\x98\x80-\xF4\x8F\xBF\xBF", 8, "--", 3, 0},
            {"a\xC1\xBF\xE0\x9F\xBF\xF0\x8F\xBF\xBFz", 8, "az", 3, 1}, // longer than necessary
            {"\xED\x9F\xBF\xED\xA0\x80\xED\xBF\xBFz", 8, "z", 3, 0},   // surrogates
            {"a\xF4\x90\x80\x80\xF9\x80\x80\x80z", 8, "az", 2, 1},     // beyond all planes
            {"ab\xC3z\xE2\x82z\xF0\x9F\x98", 8, "abzz", 3, 2},         // cut short
            {"\x80\xBFz", 8, "z", 2, 0},                               // without a beginning
            {"", 1, "", 0, 0},
            {"ab", 0, "", 2, 0},
            {"ab", 1, "", 2, 0},
            {"a\xC3\xA4z", 3, "a\xE4", 1, 3},
            {"a\xC3\xA4\xE2\x82\xAC", 3, "a\xE4", 1, 3},
        });
    char in_place[] = "\xC3\xA4\xE2\x82\xACz";
    EXPECT_EQ(vel_from_utf8(in_place, in_place, sizeof in_place, nullptr), 1U);
    EXPECT_STREQ(in_place, "\xE4z");
}

TEST(Characters, of_latin1_are_never_cut_in_half) {
    expect_conversions(vel_to_utf8, {
                                        {"a\x7F\x80\xFF", 8, "a\x7F\xC2\x80\xC3\xBF", 0, 4},
                                        {"\xBF\xC0z", 5, "\xC2\xBF\xC3\x80", 1, 2},
                                        {"a\xE4z", 3, "a", 2, 1}, // room for z alone
                                        {"a\xE4", 1, "", 2, 0},
                                        {"ab", 0, "", 2, 0},
                                    });
}

} // namespace
