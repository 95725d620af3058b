#!/usr/bin/env python3
"""Writes qxTools/encoding/CVCodeTables.inc, the GB2312 and BIG5 counterparts, and docs/encodings.md.

Inputs, all from Debian packages or Python itself:
  the mapping tables of GB 2312-80 and of code page 950 (Unicode Consortium, EASTASIA/GB/GB2312.TXT and
  VENDORS/MICSFT/WINDOWS/CP950.TXT) as Python's `gb2312` and `cp950` codecs carry them,
  OpenCC's character dictionaries (packages opencc and libopencc-data; `opencc_dict` makes them text),
  Unihan's variants and readings (package unicode-data).
The hand-kept lists below come from the editor's reading of these and of the First Table of Verified Variant
Characters (China, 1955; "the 1955 table" below) and the Dictionary of Chinese Character Variants (Ministry
of Education, Taiwan; "MOE" below).

    scripts/make_cvcode_tables.py      (a second run writes the same bytes)
"""
import bz2
import collections
import pathlib
import re
import subprocess
import tempfile
import unicodedata

import cvcode_report

ROOT = pathlib.Path(__file__).parent.parent
OPENCC = pathlib.Path("/usr/share/opencc")
UNICODE = pathlib.Path("/usr/share/unicode")

NONE = 0x2020  # two spaces
BIG5_TRAILS = [*range(0x40, 0x7F), *range(0xA1, 0xFF)]

# --- Hand-kept lists: a character and its counterpart -------------------------

# Meaning or use decides against OpenCC's first choice.
TO_BIG5_EXCEPTIONS = """
    钟鐘 签簽 着著 脏臟 凄淒 袅裊 侄姪 眯瞇
    台台 岩岩 栗栗 凶凶 占占 托托 岳岳 霉霉 污污 泄泄 咨咨 熏熏 雇雇
    叁參
    钚鈽 锎鉲 锝鎝 锿鑀 镅鋂 镥鎦
"""  # 叁: the 3 of bank notes; last row: one element, named by another character in Taiwan
TO_GB_EXCEPTIONS = """
    么么 吒吒 薹薹 鈽钚 鉲锎 鎝锝 鑀锿 鋂镅
"""  # 么: 什么 is far commoner than 老么; 吒: 哪吒

# Variants of the same character that OpenCC lacks. To BIG5: radical forms become the character they are a
# form of; the others are in Unihan under another field or in MOE.
TO_BIG5_VARIANTS = """
    艹艸 扌手 氵水 忄心 饣食 纟糸 钅金 讠言 灬火
    绔褲 榘矩 飚飆 疃畽 痖啞 珏玨 礴礡 畲畬
"""
# To GB2312: the 1955 table.
TO_GB_VARIANTS = """
    妳你 姪侄 耑专 偺咱 啣衔 毬球 琍璃 訢欣 傚效 勦剿 勣绩 搾榨 搆构 痳淋 鉋刨 慇殷 跼局 瞇眯 瞋嗔 箠棰 踫碰
    銲焊 嬝袅 彊强 燐磷 篛箬 谿溪 鎗枪 鑤刨 鑪炉 蔆菱 譆嘻 覜眺 繙翻 颺扬
    晻暗 粺稗 牓榜 誖悖 桮杯 獘毙 跴踩 筴策 澂澄 詶酬 耡锄 惷蠢 騃呆 蔕蒂 啑喋 椗碇 婐婀 阨厄 疿痱 癈废 俛俯
    髣仿 灨赣 摃扛 疘肛 罣挂 鑵罐 槼规 皜皓 暠皓 虖呼 謼呼 讙欢 驩欢 椷缄 儌侥 絜洁 捄救 睠眷 匟炕 闚窥 嬾懒
    惏婪 歛敛 衖弄 艣橹 磟碌 柟楠 蜺霓 儗拟 褭袅 蹻跷 寑寝 搉榷 羢绒 毧绒 橤蕊 葠参 儵倏 搨拓 蹚趟 筩筒 媮偷
    穨颓 尟鲜 嵒岩 醼宴 燿耀 殀夭 瘖喑 菑灾 喒咱 劄札 琖盏 蹔暂 淛浙 慴慑 袟帙 阯址 秖只 塼砖 譔撰 斲斫 斮斫
    騣鬃 篹纂 蹧糟 欬咳 臕膘 雝雍 艸草 扞捍 搥捶 懃勤
"""
# To GB2312: MOE (糢 as in 糢糊; 蘗 is read bò and is not 蘖), and the simplification of 1964 (囉).
TO_GB_VARIANTS += """
    玨珏 珮佩 徬彷 痲麻 撚捻 踡蜷 霤溜 蘗檗 糢模 槃盘 甽畎 囉罗 卄廿 礡礴 畬畲
"""

# Unihan lists these as variants of something in the other set, but they are other characters, other amounts,
# or only borrowed for one another in old texts.
NOT_THE_SAME = set("""
    叁 冂 卩 阝 揸 溻 郄 莜 厶
    吋 妳 惇 箠 矓 籥
    丼 卍 汫 侅 侚 侁 坰 杸 咮 耏 唅 埇 挭 烝 赸 埶 堈 埼 碕 欸 衒 堭 尰 摡 揝 斞 棐 渨 渹 猋 莿 禂 豋 逿 廔
    牄 箛 耤 蜑 餂 鼏 儓 擃 樻 磪 縕 褟 駪 鴞 麰 檴 謱 譈 鏐 饇 嚵 鐀 蘡 鐶 鬫
""".split())

# Symbols that published tables give different Unicode values, or that each script writes in its own form.
SYMBOLS_TO_BIG5 = {0xA1A4: 0xA145, 0xA1AA: 0xA158, 0xA1DC: 0xA1D8, 0xA1DD: 0xA1D9}
SYMBOLS_TO_GB = {0xA140: NONE, 0xA144: NONE, 0xA145: 0xA1A4, 0xA150: 0xA1A4, 0xA157: 0xA1AA, 0xA158: 0xA1AA,
                 0xA1D8: 0xA1DC, 0xA1D9: 0xA1DD}


# --- Published data -----------------------------------------------------------

def read_opencc(name):
    with tempfile.NamedTemporaryFile() as text:
        subprocess.run(["opencc_dict", "-i", OPENCC / f"{name}.ocd2", "-o", text.name, "-f", "ocd2", "-t", "text"],
                       check=True, stdout=subprocess.DEVNULL)
        lines = sorted(text.read().decode().splitlines())
    return {key: forms.split(" ") for key, forms in (line.split("\t") for line in lines)}


def read_unihan(name, fields):
    """field -> character -> the field's text; and the version in the file's head."""
    tables = {field: {} for field in fields}
    text = bz2.decompress((UNICODE / f"Unihan_{name}.txt.bz2").read_bytes()).decode()
    for line in text.splitlines():
        if line.startswith("U+"):
            code, field, value = line.split("\t")
            if field in tables:
                tables[field][chr(int(code[2:], 16))] = value
    return tables, re.search(r"(?i)unicode version:? (\S+)", text).group(1)


def read_codec(codec, leads, trails):
    """code -> character, and character -> its main code."""
    characters = {}
    for code in (lead << 8 | trail for lead in leads for trail in trails):
        try:
            characters[code] = code.to_bytes(2, "big").decode(codec)
        except UnicodeDecodeError:
            pass
    return characters, {u: int.from_bytes(u.encode(codec), "big") for u in sorted(characters.values())}


def pairs(text):
    return {pair[0]: pair[1] for pair in text.split()}


class Data:
    FIELDS = ["kZVariant", "kSemanticVariant", "kSpecializedSemanticVariant", "kTraditionalVariant",
              "kSimplifiedVariant"]

    def __init__(self):
        self.gb, self.gb_code = read_codec("gb2312", range(0xA1, 0xF8), range(0xA1, 0xFF))
        self.big5, self.big5_code = read_codec("cp950", [*range(0xA1, 0xC7), *range(0xC9, 0xFA)], BIG5_TRAILS)
        for code in [code for code in self.big5 if code > 0xC6A0 and code < 0xC940]:
            self.big5_code.pop(self.big5.pop(code), None)  # user-defined rows
        names = ["STCharacters", "TSCharacters", "TWVariants", "TWVariantsRev", "HKVariants", "HKVariantsRev"]
        self.opencc = {name: read_opencc(name) for name in names}
        readings, _ = read_unihan("Readings", ["kMandarin"])
        self.readings = {u: set(value.split()) for u, value in readings["kMandarin"].items()}
        self.variants = collections.defaultdict(list)
        tables, self.unicode_version = read_unihan("Variants", self.FIELDS)
        for field in self.FIELDS:
            for u, value in tables[field].items():
                for other in (chr(int(item.split("<")[0][2:], 16)) for item in value.split()):
                    self.variants[u].append(other)
                    self.variants[other].append(u)
        self.opencc_version = subprocess.run(["dpkg-query", "-W", "-f", "${source:Upstream-Version}", "libopencc-data"],
                                             check=True, stdout=subprocess.PIPE, text=True).stdout


# --- Choosing a counterpart ---------------------------------------------------

def keys_of(dictionary, form):
    return [key for key, forms in dictionary.items() if form in forms]


def traditional_forms(data, u):
    """Candidates for BIG5, best first, from OpenCC: the commonest form (as Taiwan writes it), the character
    itself, the other forms, the reversed and variant dictionaries."""
    taiwan = data.opencc["TWVariants"]
    forms = data.opencc["STCharacters"].get(u, [u])
    yield from taiwan.get(forms[0], [])
    yield forms[0]
    yield u
    for form in forms[1:]:
        yield from taiwan.get(form, [])
        yield form
    yield from keys_of(data.opencc["TSCharacters"], u)
    for name in ("TWVariants", "TWVariantsRev", "HKVariants", "HKVariantsRev"):
        yield from data.opencc[name].get(u, [])


def simplified_forms(data, u):
    """Candidates for GB2312, best first, in the same order."""
    simplified = data.opencc["TSCharacters"]
    usual = [form for old in data.opencc["TWVariantsRev"].get(u, []) for form in simplified.get(old, [old])]
    forms = simplified.get(u, usual) or [u]
    yield forms[0]
    yield u
    yield from forms[1:]
    yield from usual
    yield from keys_of(data.opencc["STCharacters"], u)
    for name in ("TWVariantsRev", "TWVariants", "HKVariantsRev", "HKVariants"):
        for form in data.opencc[name].get(u, []):
            yield form
            yield from simplified.get(form, [])


def first_held(candidates, held):
    return next((u for u in candidates if u in held), None)


def unihan_counterpart(data, forms, u, held):
    """Unihan's variant of the same character, or that variant's own counterpart, if both are read alike."""
    if u in NOT_THE_SAME:
        return None
    for other in data.variants[u]:
        found = first_held(forms(data, other), held)
        if found and data.readings.get(found, set()) & data.readings.get(u, set()):
            return found
    return None


def choose(data, forms, exceptions, variants, held, u):
    if u in exceptions:
        return exceptions[u]
    return first_held(forms(data, u), held) or variants.get(u) or unihan_counterpart(data, forms, u, held)


# --- Symbols ------------------------------------------------------------------

def box_arms(u):
    """The arms of a box drawing made of light and heavy lines, weight left out; None for anything else."""
    name = unicodedata.name(u, "")
    if not name.startswith("BOX DRAWINGS ") or re.search("DASH|DOUBLE|SINGLE|ARC|DIAGONAL", name):
        return None
    name = name.replace("VERTICAL", "UP DOWN").replace("HORIZONTAL", "LEFT RIGHT")
    return frozenset(re.findall("UP|DOWN|LEFT|RIGHT", name))


def full_size(u):
    """The ordinary form of a small or vertical punctuation mark, full width where it is ASCII."""
    if u == "\u00AF":
        return "\uFFE3"
    kind, _, code = unicodedata.decomposition(u).partition(" ")
    if kind not in ("<small>", "<vertical>") or u == "\uFE34":  # FE34 is a wavy line
        return None
    plain = int(code, 16)
    return chr(plain + 0xFEE0 if plain < 0x80 else plain)


def is_hanzi(u):
    return "CJK" in unicodedata.name(u, "") and "IDEOGRAPH" in unicodedata.name(u, "")


# --- The two tables -----------------------------------------------------------

def gb_to_big5(data):
    """GB2312 code -> BIG5 code, for the codes that have a counterpart."""
    exceptions, variants = pairs(TO_BIG5_EXCEPTIONS), pairs(TO_BIG5_VARIANTS)
    lines = {box_arms(u): u for u in data.big5_code if box_arms(u)}
    table = {}
    for code, u in data.gb.items():
        if is_hanzi(u):
            found = choose(data, traditional_forms, exceptions, variants, data.big5_code, u)
        else:
            found = u if u in data.big5_code else lines.get(box_arms(u))
        if found:
            table[code] = data.big5_code[found]
    return table | SYMBOLS_TO_BIG5


def big5_to_gb(data):
    """BIG5 code -> GB2312 code, for the codes that have a counterpart."""
    exceptions, variants = pairs(TO_GB_EXCEPTIONS), pairs(TO_GB_VARIANTS)
    table = {}
    for code, u in data.big5.items():
        u = unicodedata.normalize("NFC", u)  # the page's two compatibility characters are 兀 and 嗀
        if is_hanzi(u):
            found = choose(data, simplified_forms, exceptions, variants, data.gb_code, u)
        else:
            found = u if u in data.gb_code else full_size(u)
        if found in data.gb_code:
            table[code] = data.gb_code[found]
    return {code: found for code, found in (table | SYMBOLS_TO_GB).items() if found != NONE}


# --- Output -------------------------------------------------------------------

HEAD = """\
// Written by scripts/make_cvcode_tables.py; do not edit. 0x2020 stands where a character has no counterpart.
// Made from
//   the mapping tables of GB 2312-80 and code page 950 (Unicode Consortium, EASTASIA/GB/GB2312.TXT and
//   VENDORS/MICSFT/WINDOWS/CP950.TXT) as Python's gb2312 and cp950 codecs carry them,
//   OpenCC {opencc}, character dictionaries. Copyright 2010-2022 BYVoid <byvoid.kcp@gmail.com>.
//     Licensed under the Apache License, Version 2.0; changed: reduced to one counterpart a character that
//     the two sets hold. See THIRD-PARTY-NOTICES.md.
//   Unihan {unicode}, variants and readings. Copyright 1991-2022 Unicode, Inc. See THIRD-PARTY-NOTICES.md.
"""


def rows(name, comment, leads, trails, table):
    yield f"\n// {comment}\nconstexpr std::uint16_t {name}[] = {{\n"
    for lead in leads:
        yield f"// {lead:02X}\n"
        codes = [table.get(lead << 8 | trail, NONE) for trail in trails]
        for first in range(0, len(codes), 13):
            yield ", ".join(f"0x{code:04X}" for code in codes[first:first + 13]) + ",\n"
    yield "};\n"


def main():
    data = Data()
    to_big5, to_gb = gb_to_big5(data), big5_to_gb(data)
    text = [HEAD.format(opencc=data.opencc_version, unicode=data.unicode_version)]
    text += rows("kBig5OfGb", "Rows A1 to F7 of GB2312, trail bytes A1 to FE.", range(0xA1, 0xF8), range(0xA1, 0xFF),
                 to_big5)
    text += rows("kGbOfBig5", "Rows A1 to FE of BIG5, trail bytes 40 to 7E, then A1 to FE.", range(0xA1, 0xFF),
                 BIG5_TRAILS, to_gb)
    (ROOT / "qxTools/encoding/CVCodeTables.inc").write_text("".join(text), encoding="utf-8")
    (ROOT / "docs/encodings.md").write_text(cvcode_report.page(data, to_big5, to_gb), encoding="utf-8")


if __name__ == "__main__":
    main()
