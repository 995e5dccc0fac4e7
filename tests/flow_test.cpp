// One stream of text through a chain of objects.
#include "support.h"

namespace {

// A head, object 8, and members 9, 10, 11 with texts 1, 2, 3. Text 4 comes after them.
class Flow : public test::Form {
protected:
    Flow() { make_chain(100000); }
    void make_chain(uint32_t line_width) {
        make(8, VEL_TYPE_CHAIN, 0, 0, 300, 190);
        std::fill_n(objects[8].dep_objs, 100, 0U);
        for (uint32_t k = 9; k < 12; ++k) {
            vel_object &o = make(k, VEL_TYPE_CHAIN, 0, 0, 100, 100, 8);
            o.text_index = k - 8;
            o.line_width = line_width;
            o.number_of_lines = 0;
        }
        std::fill_n(&buffers[0][0], 5 * VEL_TEXT_BUFFER_SIZE, '\0');
    }
    uint32_t flow(const std::string &text) {
        stream = text;
        objects[8].stream = stream.data();
        return vel_format_stream_to_linked_objects(&ctx, 8);
    }
    static std::string feeds(int count) { return count == 0 ? "" : "a\n" + feeds(count - 1); }
    std::string stream;
};

// Where the last line of a member overflows: what lands on it and on the first lines of the next
// two, what is returned, and the lines counted for the first two. A word that moves on is counted
// with the member that the flow itself left last.
TEST_F(Flow, the_last_line_of_a_member_leads_to_the_next) {
    const std::string full = std::string(49, 'i') + " " + std::string(48, 'i') + " ";
    const uint32_t wide = 100000, mm = width_of("mm"), mm_m = width_of("mm m");
    using Line = const char *;
    const std::tuple<std::string, uint32_t, Line, Line, Line, uint32_t, uint32_t, uint32_t>
        cases[] = {{"one two\nthree", wide, "", "", "", 1, 1, 0},
                   {feeds(80) + "next", wide, "a", "a", "next", 0, 0, 39},
                   {feeds(39) + "mm mmm", mm_m, "mm ", "mmm", "", 0, 0, 0},
                   {feeds(39) + "mm i\n" + feeds(38) + "mm i", mm, "mm", " i", " i", 0, 39, 39},
                   {feeds(39) + full + "x", wide, full.c_str(), "x", "", 0, 39, 0},
                   // A line feed after an empty word goes on into the lines of the next text.
                   {std::string(40, '\n') + "x", wide, "", "x", "", 40, 40, 0},
                   {std::string(5000, '\n') + "x y\nz", wide, "", "z", "", 0, 0, 0}};
    for (const auto &[text, width, line39, next, third, result, lines, next_lines] : cases) {
        make_chain(width);
        EXPECT_EQ(flow(text), result);
        EXPECT_EQ(
            std::tuple(std::string(line(1, 39)), std::string(line(2, 0)), std::string(line(3, 0))),
            std::tuple(line39, next, third))
            << text.size();
        EXPECT_EQ(std::tuple(objects[9].number_of_lines, objects[10].number_of_lines),
                  std::tuple(lines, next_lines));
    }
}

TEST_F(Flow, the_chain_ends_what_does_not_fit) {
    for (const auto &[members, after] : {std::pair{1, 0U}, {1, 15U}, {2, 0U}}) {
        make_chain(100000);
        objects[8].dep_objs[members] = after;
        EXPECT_EQ(flow(feeds(40 * members) + "lost"), 39U) << members;
        EXPECT_STREQ(line(test::u32(members) + 1, 0), "");
    }
    // Words without blanks are placed even then; here the list of members has no end.
    make_chain(width_of("m"));
    std::fill_n(objects[8].dep_objs, VEL_MAX_DEPENDENTS, 9U);
    EXPECT_EQ(flow(std::string(20000, 'm')), 39U);
    EXPECT_STREQ(line(1, 39), "m");
}

TEST_F(Flow, a_split_word_is_copied_with_its_nul_and_printed_on_the_last_line) {
    const std::string
        moved = "1142 next chain \n \n next chain: 0 \n \n",
        ended = "1142 next chain \n \n next chain: 1 \n \n1153 object 9 number_of_lines 39 \n \n";
    using Case = std::tuple<std::string, uint32_t, std::string, uint32_t, std::string>;
    for (const auto &[text, second, printed, result, line39] :
         {Case("mmmmmm\nlost", 0, ended, 39, {"mm\0\0\0", 5}),
          Case("mmmmmm\nnext", 10, moved, 0, {"mm\0\0\0", 5}),
          Case("mmmmmm i", 10, "", 39, {"mm\0 i", 5})}) {
        make_chain(width_of("mmmm"));
        objects[8].dep_objs[1] = second;
        testing::internal::CaptureStdout();
        EXPECT_EQ(flow(feeds(38) + text), result);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
        EXPECT_EQ(std::string(line(1, 39), 5), line39) << text;
    }
    make_chain(1); // letters that fit nowhere end in bounded time
    EXPECT_EQ(flow("mmm mmm\nmmm " + std::string(200, 'm')), 39U);
}

TEST_F(Flow, single_words_and_moves_report_what_they_did) {
    objects[11].text_index = 0; // so that there is no third member
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, int32_t, uint32_t, uint32_t>;
    for (const auto &[from, on_line, break_after, result, to, line_after] :
         {Case(0, 5, 0, 1, 0, 5), Case(0, 5, 1, 0, 0, 6), Case(0, 39, 1, 1, 1, 0),
          Case(1, 39, 1, -1, 2, 39)}) {
        uint32_t position = from, text = from + 1, at_line = on_line, column = 0, length = 2;
        EXPECT_EQ(vel_copy_word_big(&ctx, 8, &position, &text, "ab", &at_line, &column, &length,
                                    break_after),
                  result);
        EXPECT_STREQ(line(from + 1, on_line), "ab");
        EXPECT_EQ(std::tuple(position, at_line, length), std::tuple(to, line_after, 0U));
    }
    uint32_t position = 0, member = 9, text = 1, at_line = 7, column = 3;
    EXPECT_EQ(vel_go_to_next_chainmember(&ctx, 8, &position, &member, &text, &at_line, &column), 0);
    EXPECT_EQ(std::tuple(position, member, objects[9].number_of_lines), std::tuple(1U, 10U, 7U));
}

} // namespace
