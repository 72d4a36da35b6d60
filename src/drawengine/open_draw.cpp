#include "drawengine/open_draw.h"

#include "core/text_rules.h"

#include <charconv>

namespace qv {

void OpenDraw::build_tree(int drawsize)
{
    const int rounds = round_count(drawsize);
    draw.drawsize = drawsize;
    draw.rounds = rounds + 1;
    m_levels.clear();
    if (rounds == 0)
        return;
    for (int slots = drawsize; slots >= 1; slots /= 2)
        m_levels.emplace_back(static_cast<std::size_t>(slots));
}

int OpenDraw::positions(int level) const
{
    if (level < 1 || level > levels())
        return 0;
    return static_cast<int>(m_levels[static_cast<std::size_t>(level - 1)].size());
}

bool OpenDraw::has_slot(int level, int position) const
{
    return position >= 1 && position <= positions(level);
}

Slot& OpenDraw::slot(int level, int position)
{
    return const_cast<Slot&>(static_cast<const OpenDraw&>(*this).slot(level, position));
}

const Slot& OpenDraw::slot(int level, int position) const
{
    if (!has_slot(level, position))
        throw std::out_of_range("no slot " + address_text(level, position) + " in the open draw");
    return m_levels[static_cast<std::size_t>(level - 1)][static_cast<std::size_t>(position - 1)];
}

const std::string& OpenDraw::caption(int level, int position) const
{
    const auto& s = slot(level, position);
    return level == 1 ? s.frn : s.tag;
}

const std::string& OpenDraw::second_form(int level, int position) const
{
    const auto& s = slot(level, position);
    return level == 1 ? s.tag : s.frn;
}

std::string OpenDraw::data_field(int level, int position) const
{
    const auto& s = slot(level, position);
    if (level == 1)
        return s.ar + "^" + s.sex;
    return s.country + "^" + s.seed + "^" + s.ar + "^" + s.sex + "^";
}

void OpenDraw::clear_slot(int level, int position)
{
    auto& s = slot(level, position);
    auto score = std::move(s.score);
    const auto sid = s.sid;
    s = Slot {};
    s.score = std::move(score);
    s.sid = sid;
}

int OpenDraw::match_of(int level, int position) const
{
    if (!has_slot(level, position))
        throw std::out_of_range("no slot " + address_text(level, position) + " in the open draw");
    int before = 0;
    for (int l = 1; l < level; ++l)
        before += positions(l) / 2;
    return before + next_position(position);
}

std::optional<SlotAddress> OpenDraw::split_mtmb(std::string_view text)
{
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == text.size())
        return std::nullopt;
    SlotAddress at;
    const auto level_part = text.substr(0, dot);
    const auto position_part = text.substr(dot + 1);
    auto [p1, e1] = std::from_chars(level_part.data(), level_part.data() + level_part.size(), at.level);
    auto [p2, e2] = std::from_chars(position_part.data(), position_part.data() + position_part.size(), at.position);
    if (e1 != std::errc {} || e2 != std::errc {} || p1 != level_part.data() + level_part.size()
        || p2 != position_part.data() + position_part.size())
        return std::nullopt;
    return at;
}

void parse_data_field(std::string_view text, Slot& slot)
{
    std::string* parts[] = { &slot.country, &slot.seed, &slot.ar, &slot.sex };
    for (auto* part : parts) {
        const auto caret = text.find('^');
        *part = std::string(text.substr(0, caret));
        text = caret == std::string_view::npos ? std::string_view {} : text.substr(caret + 1);
    }
}

} // namespace qv
