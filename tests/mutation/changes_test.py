"""What is changed in a source, and what is not."""

import unittest

from changes import Source, all_changes


def changed(text, kind, names=None):
    """The sources that the changes of one kind make of a source."""
    return [c.applied(text) for c in Source("file.cpp", text, names or {}).changes() if c.kind == kind]


class Conditions(unittest.TestCase):
    def test_comparisons_and_joins_become_others(self):
        self.assertEqual(
            changed("x = a < b && c == d;", "condition"),
            ["x = a <= b && c == d;", "x = a >= b && c == d;", "x = a < b || c == d;", "x = a < b && c != d;"],
        )

    def test_angle_brackets_of_templates_are_no_comparisons(self):
        self.assertEqual(changed("std::span<const int> x = f<3>(y);", "condition"), [])

    def test_condition_of_an_if_is_its_last_part(self):
        self.assertEqual(
            changed("if (const int s = f(); g(s)) return;", "condition"), ["if (const int s = f(); !(g(s))) return;"]
        )

    def test_condition_of_a_for_is_its_second_part(self):
        self.assertEqual(changed("for (int i = 0; more(i); ++i) f();", "condition"),
                         ["for (int i = 0; !(more(i)); ++i) f();"])
        self.assertEqual(changed("for (int i : all) f();", "condition"), [])

    def test_lone_comparison_is_not_turned_round_twice(self):
        self.assertEqual(changed("if (a != b) return;", "condition"), ["if (a == b) return;"])

    def test_negation_is_left_out(self):
        self.assertEqual(changed("x = !y;", "condition"), ["x = y;"])


class Constants(unittest.TestCase):
    def test_numbers_grow_and_masks_lose_a_bit(self):
        self.assertEqual(changed("f(7, 0x30);", "constant"), ["f(8, 0x30);", "f(7, 0x20);"])

    def test_names_become_others_of_their_kind(self):
        sources = {"a.cpp": "x = Gate::kOpen; y = Gate::kShut; z = YFW_FLAG_A; w = kAlone;"}
        headers = {"platform.h": "#define YFW_FLAG_A 1\n#define YFW_FLAG_B 2\n#define YFW_OTHER 3\n"}
        self.assertEqual(
            [c.replacement for c in all_changes(sources, headers) if c.kind == "constant"],
            ["kShut", "kOpen", "YFW_FLAG_B"],
        )


class Texts(unittest.TestCase):
    def test_text_loses_its_last_character(self):
        self.assertEqual(changed(r'f("ab", "", "c\n");', "text"), [r'f("a", "", "c\n");', r'f("ab", "", "c");'])


class Orders(unittest.TestCase):
    def test_neighbouring_arguments_change_places(self):
        self.assertEqual(changed("f(a, g(b, c));", "order"), ["f(g(b, c), a);", "f(a, g(c, b));"])

    def test_parameters_and_designators_stay(self):
        self.assertEqual(changed("int f(int a, const T& b);\nT t{.a = 1, .b = 2};", "order"), [])

    def test_neighbouring_rows_change_places(self):
        self.assertEqual(changed("T t[] = {\n  {1},\n  {2},\n};", "order"), ["T t[] = {\n  {2},\n  {1},\n};"])

    def test_neighbouring_rows_of_one_kind_change_places_in_an_included_table(self):
        text = "ROW(a, {\n  .b = 1})\nROW(c, {})\nOTHER(d, {})\n"
        changes = Source("table.inc", text, {}).rows()
        self.assertEqual([c.applied(text) for c in changes], ["ROW(c, {})\nROW(a, {\n  .b = 1})\nOTHER(d, {})\n"])

    def test_neighbouring_statements_change_places(self):
        self.assertEqual(changed("{\n  f();\n  g();\n}\n", "order"), ["{\n  g();\n  f();\n}\n"])

    def test_statements_of_different_blocks_stay(self):
        self.assertEqual(changed("{\n  f();\n}\n  g();\n", "order"), [])

    def test_values_of_an_alternative_change_places(self):
        self.assertEqual(changed("x = a ? b::c : d;", "order"), ["x = a ? d : b::c;"])


class Untouched(unittest.TestCase):
    def test_comments_directives_and_static_assertions_stay(self):
        text = '// a == 1\n/* b\n != 2 */\n#include "x"\n#define Y 1 \\\n  + 2\nstatic_assert(1 == 1, "text");\n'
        self.assertEqual(all_changes({"a.cpp": text}, {}), [])


if __name__ == "__main__":
    unittest.main()
