#include <gtest/gtest.h>

#include <array>

#include "Host/ground/Nearest.h"

namespace TicketHost {
namespace {

TEST(Terminal, TheNearestNameIsTheOneWithTheFewestSlips) {
    constexpr std::array<std::string_view, 7> names = {"convert",          "tables", "passphrase", "text",
                                                       "TwoSidedLongEdge", "json",   "jsonl"};
    const std::pair<std::string, std::string_view> rows[] = {
        {"convrt", "convert"},    // a letter too few
        {"coonvert", "convert"},  // too many
        {"cinvert", "convert"},   // another one
        {"covnert", "convert"},   // two in each other's place: one slip, where a letter in between makes two
        {"eabltes", "tables"},    // two slips of seven letters
        {"jsno", "json"},         // one slip of json, two of jsonl, which are too many
        {"jsonl", "jsonl"},       // and json is one slip away
        {"josnl", "jsonl"},
        {"jsonx", "json"},       // one slip away from both: the first
        {"CONVERT", "convert"},  // case is no slip
        {"twosidedlongedg", "TwoSidedLongEdge"},
        {"TwoSidedEdge", "TwoSidedLongEdge"},  // four of sixteen
        {"TwoEdge", ""},                       // nine of sixteen
        {"cnovret", "convert"},                // two swaps of seven letters
        {"conv", ""},
        {"", ""},
        {"t", ""},
        {std::string(10'000'000, 't'), ""},
    };
    for (const auto& [word, nearest] : rows)
        EXPECT_EQ(FindNearest(word, names), nearest) << word.substr(0, 20);
    EXPECT_EQ(FindNearest("a", std::array<std::string_view, 1>{"b"}), "");
    EXPECT_EQ(FindNearest("text", {}), "");
    EXPECT_EQ(DidYouMean("Table", names) + DidYouMean("xyz", names), "; did you mean tables?");
}

}  // namespace
}  // namespace TicketHost
