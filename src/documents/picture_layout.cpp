#include "documents/picture_layout.h"

namespace qv {

std::string PictureLayout::key(std::string_view name, int index)
{
    return std::string(name) + "#" + std::to_string(index);
}

PictureCell& PictureLayout::add(PictureCell cell)
{
    m_index[key(cell.name, cell.index)] = m_cells.size();
    m_cells.push_back(std::move(cell));
    return m_cells.back();
}

PictureCell* PictureLayout::find(std::string_view name, int index)
{
    const auto found = m_index.find(key(name, index));
    return found == m_index.end() ? nullptr : &m_cells[found->second];
}

const PictureCell* PictureLayout::find(std::string_view name, int index) const
{
    return const_cast<PictureLayout*>(this)->find(name, index);
}

std::vector<const PictureCell*> PictureLayout::family(std::string_view name) const
{
    std::vector<const PictureCell*> members;
    for (const auto& cell : m_cells)
        if (cell.name == name)
            members.push_back(&cell);
    return members;
}

} // namespace qv
