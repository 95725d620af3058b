"""The page docs/encodings.md: what make_cvcode_tables.py chose, with counts and lists."""

INTRO = """\
# GB2312 and BIG5

`qxTools::CVCode` converts between the two sets character by character, through two fixed tables; words and
context play no part. This page lists what the tables hold. It is written by `scripts/make_cvcode_tables.py`,
together with the tables.

## How a counterpart was chosen

In this order:

1. a hand-kept list, where meaning or use decides (签 gives 簽, BIG5's 么 gives 么 and not 幺; elements that Taiwan
   names by another character, 钚 鈽);
2. the commonest form of the other script: the first choice of OpenCC's character dictionaries, as Taiwan writes it;
3. the same character;
4. OpenCC's other forms, its reversed and its variant dictionaries;
5. variants of the same character: the First Table of Verified Variant Characters (1955) and the Dictionary of
   Chinese Character Variants (Ministry of Education), by a hand-kept list; then Unihan's variants that are read
   alike, less a hand-kept list of pairs that are not the same character.

Meaning goes before identity: 后 gives 後, 机 gives 機, 於 gives 于. A target is always a standard code (十 A451,
兀 A461, box drawings A27E to A2A7). Box drawings of heavy and mixed lines become the same drawing in light lines,
small and vertical punctuation becomes ordinary punctuation. Units of measure in one character (吋 呎 浬) have no
counterpart; nor has any character of the user-defined rows. What has no counterpart becomes two spaces.

On purpose, BIG5's ideographic space A140 and full-width point A144 have no counterpart, while GB2312's A1A1 and
A3AE give them.

Inputs: the Unicode Consortium's mapping tables of GB 2312-80 and code page 950, OpenCC {opencc}, Unihan {unicode}.

## Coverage

| set | characters | with a counterpart | unchanged after both directions | ambiguous | without |
|---|---|---|---|---|---|
"""


def wrapped(items, width):
    for first in range(0, len(items), width):
        yield "".join(items[first:first + width]).rstrip(" ") + "\n"


class Side:
    """One set, its table, and the table back."""

    def __init__(self, characters, codes, table, back, targets, dictionary):
        self.characters, self.codes, self.table, self.back = characters, codes, table, back
        self.targets, self.dictionary = targets, dictionary

    def choice(self, code):
        return self.targets[self.table[code]]

    def others(self, code):
        """The forms that OpenCC names and the other set holds, less the one chosen."""
        held = self.targets.values()
        forms = self.dictionary.get(self.characters[code], [])
        return [form for form in forms if form in held and form != self.choice(code)]

    def ambiguous(self):
        return [code for code in self.codes if code in self.table and self.others(code)]

    def without(self):
        return [code for code in self.codes if code not in self.table]

    def coverage(self, name):
        held = [code for code in self.codes if code in self.table]
        same = sum(self.back.get(self.table[code]) == code for code in held)
        counts = [len(self.codes), len(held), same, len(self.ambiguous()), len(self.without())]
        return "| " + " | ".join([name, *(f"{count:,}" for count in counts)]) + " |\n"

    def lists(self, name):
        yield f"\n## {name}\n"
        if self.ambiguous():
            yield "\nAmbiguous: the character, its counterpart, and the other forms that it can stand for.\n\n"
            yield from wrapped([f"{self.characters[code]} {self.choice(code)} ({' '.join(self.others(code))}), "
                                for code in self.ambiguous()], 12)
        yield "\nWithout a counterpart:\n\n```\n"
        yield from wrapped([self.characters[code] for code in self.without()], 50)
        yield "```\n"


def page(data, to_big5, to_gb):
    def gb(codes):
        return Side(data.gb, codes, to_big5, to_gb, data.big5, data.opencc["STCharacters"])

    def big5(codes):
        return Side(data.big5, codes, to_gb, to_big5, data.gb, data.opencc["TSCharacters"])

    sides = {
        "GB2312 hanzi": gb([code for code in data.gb if code >= 0xB0A1]),
        "GB2312 symbols": gb([code for code in data.gb if code < 0xB0A1]),
        "BIG5 level 1": big5([code for code in data.big5 if 0xA440 <= code < 0xC6A1]),
        "BIG5 level 2": big5([code for code in data.big5 if 0xC940 <= code < 0xF9D6]),
        "BIG5 symbols": big5([code for code in data.big5 if code < 0xA440]),
        "BIG5 F9D6 to F9FE": big5([code for code in data.big5 if code >= 0xF9D6]),
    }
    text = [INTRO.format(opencc=data.opencc_version, unicode=data.unicode_version)]
    text += [side.coverage(name) for name, side in sides.items()]
    for name, side in sides.items():
        text += side.lists(name)
    return "".join(text)
