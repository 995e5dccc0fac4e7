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
    static std::string feeds(int count) {
        std::string text;
        for (int k = 0; k < count; ++k) text += "a\n";
        return text;
    }
    std::string stream;
};

// Where the last line of a member overflows: what lands on it and on the first lines of the next
// two, what is returned, and the lines counted for the first two. A word that moves on is counted
// with the member that the flow itself left last.
TEST_F(Flow, the_last_line_of_a_member_leads_to_the_next) {
    const uint32_t wide = 100000, mm = width_of("mm"), mm_m = width_of("mm m");
    const std::tuple<std::string, uint32_t, const char *, const char *, const char *, uint32_t,
                     uint32_t, uint32_t>
        cases[] = {{"one two\nthree", wide, "", "", "", 1, 1, 0},
                   {feeds(39) + "z", wide, "z", "", "", 39, 39, 0},
                   {feeds(40) + "next", wide, "a", "next", "", 0, 0, 0},
                   {feeds(80) + "next", wide, "a", "a", "next", 0, 0, 39},
                   {feeds(39) + "mm mmm", mm_m, "mm ", "mmm", "", 0, 0, 0},
                   {feeds(39) + "mm i", mm, "mm", " i", "", 0, 39, 0},
                   {feeds(39) + "mm i\n" + feeds(38) + "mm i", mm, "mm", " i", " i", 0, 39, 39},
                   {std::string(39, '\n') + "x", wide, "x", "", "", 39, 39, 0},
                   // A line feed after an empty word goes on into the lines of the next text.
                   {std::string(40, '\n') + "x", wide, "", "x", "", 40, 40, 0},
                   {std::string(5000, '\n') + "x y", wide, "", "", "", 5000, 5000, 0},
                   {std::string(5000, '\n') + "x y\nz", wide, "", "z", "", 0, 0, 0},
                   {"", wide, "", "", "", 0, 0, 0}};
    for (const auto &[text, width, line39, next, third, result, lines, next_lines] : cases) {
        make_chain(width);
        EXPECT_EQ(flow(text), result);
        EXPECT_EQ(
            std::tuple(std::string(line(1, 39)), std::string(line(2, 0)), std::string(line(3, 0))),
            std::tuple(line39, next, third))
            << result << " " << text.size();
        EXPECT_EQ(std::tuple(objects[9].number_of_lines, objects[10].number_of_lines),
                  std::tuple(lines, next_lines))
            << text.size();
    }
}

// Line 39 is full with 98 letters and a blank.
TEST_F(Flow, full_lines_go_on) {
    const std::string full = std::string(49, 'i') + " " + std::string(48, 'i') + " ";
    for (const auto &[before, text, at_line] : {std::tuple{0, 1U, 1U}, {39, 2U, 0U}}) {
        make_chain(100000);
        EXPECT_EQ(flow(feeds(before) + full + "x"), at_line);
        EXPECT_EQ(std::string(line(1, test::u32(before))), full);
        EXPECT_STREQ(line(text, at_line), "x");
    }
}

TEST_F(Flow, the_chain_ends_what_does_not_fit) {
    for (const auto &[entry, fault] : {std::pair{1U, 0U}, {1U, 15U}, {2U, 0U}}) {
        make_chain(100000);
        objects[8].dep_objs[entry] = fault;
        EXPECT_EQ(flow(feeds(40 * static_cast<int>(entry)) + "lost"), 39U) << entry;
        EXPECT_STREQ(line(entry, 39), "a");
        EXPECT_STREQ(line(entry + 1, 0), "");
    }
}

TEST_F(Flow, chains_need_a_first_member_line_buffers_and_no_texts) {
    const std::function<void()> faults[] = {
        [this] { objects[8].type = VEL_TYPE_TEXT; }, [this] { objects[8].dep_objs[0] = 0; },
        [this] { objects[9].type = VEL_TYPE_TEXT; }, [this] { objects[9].text_index = 0; },
        [this] { ctx.text_bufs = nullptr; }};
    for (const auto &plant : faults) {
        make_chain(100000);
        std::strcpy(line(1, 0), "kept");
        plant();
        EXPECT_EQ(flow("a\nb"), 0U);
        EXPECT_STREQ(line(1, 0), "kept");
    }
    ctx.text_bufs = buffers;
    ctx.text_recs = nullptr;
    make_chain(0);
    objects[9].margin_left = 3;
    EXPECT_EQ(flow("a\nb"), 1U);
    EXPECT_EQ(objects[9].line_width, 97U);
    vel_evoke_object(&ctx, 9);
    EXPECT_NE(pixels(test::blue), "");
    objects[8].stream = nullptr;
    EXPECT_EQ(vel_format_stream_to_linked_objects(&ctx, 8), 0U);
}

TEST_F(Flow, what_follows_a_split_word_comes_after_its_nul) {
    make_chain(width_of("mmmm"));
    EXPECT_EQ(flow("mmmmmm i"), 1U);
    EXPECT_STREQ(line(1, 0), "mmmm");
    EXPECT_EQ(std::string(line(1, 1), 6), std::string("mm\0 i\0", 6));
}

TEST_F(Flow, a_split_word_on_the_last_line_is_printed) {
    const std::string
        moved = "1142 next chain \n \n next chain: 0 \n \n",
        ended = "1142 next chain \n \n next chain: 1 \n \n1153 object 9 number_of_lines 39 \n \n";
    using Case = std::tuple<std::string, bool, std::string, uint32_t, const char *>;
    for (const auto &[text, has_next, printed, result, next] :
         {Case(feeds(39) + "m", false, "", 39, ""),
          Case(feeds(38) + "mmmmmm\nnext", false, ended, 39, ""),
          Case(feeds(38) + "mmmmmm\nnext", true, moved, 0, "next"),
          Case(feeds(39) + "mmmmmm\nnext", true, "", 1, "mm")}) {
        make_chain(width_of("mmmm"));
        if (!has_next) objects[8].dep_objs[1] = 0;
        testing::internal::CaptureStdout();
        EXPECT_EQ(flow(text), result);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
        EXPECT_STREQ(line(2, 0), next);
    }
    make_chain(1); // letters that fit nowhere end in bounded time
    EXPECT_EQ(flow("mmm mmm\nmmm " + std::string(200, 'm')), 39U);
}

TEST_F(Flow, single_moves_report_what_they_did) {
    objects[11].text_index = 0;
    using Case = std::tuple<uint32_t, int32_t, uint32_t, uint32_t>;
    for (const auto &[from, result, to, member_after] :
         {Case(0, 0, 1, 10), Case(1, 1, 2, 11), Case(99, 1, 100, 9)}) {
        uint32_t position = from, member = 9, text = 1, at_line = 7, column = 3;
        EXPECT_EQ(vel_go_to_next_chainmember(&ctx, 8, &position, &member, &text, &at_line, &column),
                  result);
        EXPECT_EQ(std::tuple(position, member, objects[9].number_of_lines),
                  std::tuple(to, member_after, 7U))
            << from;
    }
}

} // namespace
