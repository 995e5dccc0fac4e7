// One stream of text through a chain of objects.
#include "support.h"

namespace {

using test::Form;

// A head, object 8, and members 9, 10, 11 with texts 1, 2, 3. Text 4 stands behind them.
class Flow : public Form {
protected:
    Flow() {
        make(8, VEL_TYPE_CHAIN, 0, 0, 300, 190);
        for (uint32_t k = 0; k < 3; ++k) {
            make(9 + k, VEL_TYPE_CHAIN, 0, 0, 100, 100, 8).text_index = 1 + k;
            objects[9 + k].line_width = wide;
        }
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
    void set_widths(uint32_t width) {
        for (uint32_t k = 9; k < 12; ++k) objects[k].line_width = width;
    }
    std::string stream;
    static constexpr uint32_t wide = 100000;
};

TEST_F(Flow, a_short_stream_stays_in_the_first_member) {
    EXPECT_EQ(flow("one two\nthree"), 1U);
    EXPECT_EQ(line(1, 0), "one two");
    EXPECT_EQ(line(1, 1), "three");
    EXPECT_EQ(objects[9].number_of_lines, 1U);
    EXPECT_EQ(line(2, 0), "");
}

TEST_F(Flow, a_chain_needs_line_buffers_and_no_texts) {
    ctx.text_recs = nullptr;
    EXPECT_EQ(flow(feeds(41)), 1U);
    EXPECT_EQ(line(1, 39), "a");
    EXPECT_EQ(line(2, 0), "a");
    vel_evoke_object(&ctx, 9);
    EXPECT_NE(pixels(test::blue), "");
    ctx.text_bufs = nullptr;
    EXPECT_EQ(flow("text"), 0U);
}

TEST_F(Flow, the_41st_line_starts_the_next_member) {
    EXPECT_EQ(flow(feeds(40) + "next"), 0U);
    EXPECT_EQ(line(1, 39), "a");
    EXPECT_EQ(line(2, 0), "next");
    EXPECT_EQ(objects[9].number_of_lines, 0U); // counted with the member that was left
    EXPECT_EQ(flow(feeds(39) + "z"), 39U);     // ends exactly at a member's last line
    EXPECT_EQ(objects[9].number_of_lines, 39U);
}

TEST_F(Flow, the_chain_ends_what_does_not_fit) {
    for (const auto &[entry, fault] : {std::pair{1, 0}, {1, 15}, {2, 0}}) {
        objects[8].dep_objs[1] = 10;
        objects[8].dep_objs[2] = 11;
        objects[8].dep_objs[entry] = static_cast<uint32_t>(fault);
        for (auto &buffer : buffers) buffer = {};
        EXPECT_EQ(flow(feeds(40 * entry) + "lost"), 39U) << entry;
        EXPECT_EQ(line(static_cast<uint32_t>(entry), 39), "a");
        EXPECT_EQ(line(static_cast<uint32_t>(entry) + 1, 0), "");
    }
}

TEST_F(Flow, chains_without_a_first_member_or_a_stream_do_nothing) {
    EXPECT_EQ(flow(""), 0U);
    std::strcpy(buffers[1].bytes, "kept");
    objects[8].stream = nullptr;
    EXPECT_EQ(vel_format_stream_to_linked_objects(&ctx, 8), 0U);
    const auto refused = [&](auto change) {
        const auto before = objects;
        change();
        EXPECT_EQ(flow("text"), 0U);
        EXPECT_EQ(line(1, 0), "kept");
        objects = before;
        ctx.objects = objects.data();
    };
    refused([&] { objects[8].type = VEL_TYPE_TEXT; });
    refused([&] { objects[8].dep_objs[0] = 0; });
    refused([&] { objects[9].type = VEL_TYPE_TEXT; });
    refused([&] { objects[9].text_index = 0; });
}

TEST_F(Flow, empty_lines_go_on_into_the_next_slot_and_not_to_the_next_member) {
    // The 40th line feed stands on an empty word: it goes to line slot 40, line 0 of text 2.
    EXPECT_EQ(flow(std::string(40, '\n') + "x"), 40U);
    EXPECT_EQ(line(2, 0), "x");
    EXPECT_EQ(objects[9].number_of_lines, 40U);
    EXPECT_EQ(objects[10].number_of_lines, 0U);
    // Far behind the last buffer nothing is written, until a word's line feed leaves the member.
    EXPECT_EQ(flow(std::string(5000, '\n') + "x y"), 5000U);
    EXPECT_EQ(flow(std::string(5000, '\n') + "x y\nz"), 0U);
    EXPECT_EQ(line(2, 0), "z");
}

TEST_F(Flow, words_move_on_from_the_last_line) {
    set_widths(width_of("mm m"));
    EXPECT_EQ(flow(feeds(39) + "mm mmm"), 0U);
    EXPECT_EQ(line(1, 39), "mm ");
    EXPECT_EQ(line(2, 0), "mmm");
    // Its last line is counted with the member that the flow itself left behind.
    EXPECT_EQ(objects[9].number_of_lines, 0U);
    EXPECT_EQ(objects[10].number_of_lines, 0U);
}

TEST_F(Flow, a_blank_that_does_not_fit_the_last_line_starts_the_next_member) {
    set_widths(width_of("mm"));
    EXPECT_EQ(flow(feeds(39) + "mm i"), 0U);
    EXPECT_EQ(line(1, 39), "mm");
    EXPECT_EQ(line(2, 0), " i");
    EXPECT_EQ(objects[9].number_of_lines, 39U);
    EXPECT_EQ(objects[10].number_of_lines, 0U);
}

TEST_F(Flow, what_follows_a_split_word_stands_behind_its_nul) {
    set_widths(width_of("mmmm"));
    EXPECT_EQ(flow("mmmmmm i"), 1U);
    EXPECT_EQ(line(1, 0), "mmmm");
    EXPECT_EQ(std::string(&buffers[1].bytes[VEL_LINE_SIZE], 6), std::string("mm\0 i\0", 6));
}

TEST_F(Flow, a_split_word_at_the_end_of_the_chain_is_told) {
    set_widths(width_of("mmmm"));
    objects[8].dep_objs[1] = 0;
    testing::internal::CaptureStdout();
    flow(feeds(39) + "m");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    flow(feeds(38) + "mmmmmm\nlost"); // the word ends on line 39
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "1142 next chain \n \n next chain: 1 \n \n1153 object 9 number_of_lines 39 \n \n");
    EXPECT_EQ(objects[9].number_of_lines, 39U);
    objects[8].dep_objs[1] = 10;
    testing::internal::CaptureStdout();
    EXPECT_EQ(flow(feeds(38) + "mmmmmm\nnext"), 0U);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "1142 next chain \n \n next chain: 0 \n \n");
    EXPECT_EQ(line(2, 0), "next");
}

TEST_F(Flow, letters_that_fit_nowhere_end_in_bounded_time) {
    set_widths(1);
    EXPECT_EQ(flow("mmm mmm\nmmm " + std::string(200, 'm')), 39U);
}

TEST_F(Flow, a_hundred_members_are_filled_and_no_more) {
    std::vector<vel_object> many(200);
    std::vector<vel_text_rec> records(110);
    std::vector<Buffer> lines(110);
    many[8] = objects[8];
    for (uint32_t k = 0; k < VEL_MAX_DEPENDENTS; ++k) {
        many[8].dep_objs[k] = 50 + k;
        many[50 + k] = objects[9];
        many[50 + k].text_index = 1 + k;
    }
    ctx.objects = many.data();
    ctx.text_recs = records.data();
    ctx.text_bufs = &lines[0].bytes;
    ctx.text_count = 109;
    stream = feeds(100 * 40 + 5);
    many[8].stream = stream.data();
    EXPECT_EQ(vel_format_stream_to_linked_objects(&ctx, 8), 39U);
    EXPECT_STREQ(&lines[100].bytes[39 * VEL_LINE_SIZE], "a");
    EXPECT_STREQ(lines[101].bytes, "");
    for (uint32_t k = 0; k + 1 < VEL_MAX_DEPENDENTS; ++k) {
        EXPECT_STREQ(lines[k + 1].bytes, "a") << k;
    }
}

TEST_F(Flow, single_steps_report_what_they_did) {
    uint32_t position = 0, member = 9, text = 1, at_line = 7, column = 3;
    const auto move = [&] {
        return vel_go_to_next_chainmember(&ctx, 8, &position, &member, &text, &at_line, &column);
    };
    EXPECT_EQ(move(), 0);
    EXPECT_EQ(std::tuple(position, member, text, at_line, column), std::tuple(1U, 10U, 2U, 0U, 0U));
    EXPECT_EQ(objects[9].number_of_lines, 7U);
    objects[11].text_index = 0;
    EXPECT_EQ(move(), 1);
    EXPECT_EQ(std::tuple(position, member, text), std::tuple(2U, 11U, 0U));
    position = 99;
    EXPECT_EQ(move(), 1);
    EXPECT_EQ(position, 100U);

    uint32_t length = 2;
    position = 0, text = 1, at_line = 0, column = 0;
    const auto place = [&](uint32_t break_after) {
        length = 2;
        return vel_copy_word_big(&ctx, 8, &position, &text, "ab", &at_line, &column, &length,
                                 break_after);
    };
    EXPECT_EQ(place(0), 1);
    EXPECT_EQ(std::tuple(at_line, column, length), std::tuple(0U, 2U, 0U));
    EXPECT_EQ(place(1), 0);
    EXPECT_EQ(std::tuple(at_line, column), std::tuple(1U, 0U));
}

} // namespace
