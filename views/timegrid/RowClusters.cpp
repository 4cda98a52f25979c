#include "views/timegrid/RowClusters.h"

#include <algorithm>

namespace dayvane {

int RowClusters::Find(int cluster)
{
    while (m_clusters[cluster].parent != cluster) {
        cluster = m_clusters[cluster].parent = m_clusters[m_clusters[cluster].parent].parent;
    }
    return cluster;
}

int RowClusters::NewCluster(int left, int count)
{
    const int cluster = static_cast<int>(m_clusters.size());
    m_clusters.push_back(Cluster{left, count, cluster});
    return cluster;
}

// Puts the boxes in the order of their left edges. Two neighbours overlap as soon as any two do.
bool RowClusters::Overlaps(const std::vector<RowBox>& boxes, const int* list, const int* listEnd)
{
    m_places.clear();
    for (const int* box = list; box != listEnd; ++box) {
        if (boxes[*box].width > 0) {
            m_places.push_back(Place{boxes[*box].left, boxes[*box].width, *box});
        }
    }
    std::sort(m_places.begin(), m_places.end(), IsBefore);
    for (std::size_t i = 1; i < m_places.size(); ++i) {
        if (m_places[i].left < m_places[i - 1].left + m_places[i - 1].width) {
            return true;
        }
    }
    return false;
}

// Makes clusters of the boxes in m_places, which name their box.
void RowClusters::MakeClusters(std::size_t boxCount)
{
    m_clusters.clear();
    m_clusterOf.resize(boxCount);
    m_widest = 0;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        const Place place = m_places[i];
        if (kept == 0 || IsBefore(m_places[kept - 1], place)) {
            m_places[kept++] = Place{place.left, place.width, NewCluster(place.left, 0)};
        }
        ++m_clusters.back().count;
        m_clusterOf[place.cluster] = m_places[kept - 1].cluster;
        m_widest = std::max(m_widest, place.width);
    }
    m_places.resize(kept);
}

bool RowClusters::Spread(std::vector<RowBox>& boxes, const int* list, const int* listEnd, int right)
{
    if (!Overlaps(boxes, list, listEnd)) {
        return false;
    }
    MakeClusters(boxes.size());
    for (const int* box = list; box != listEnd; ++box) {
        if (boxes[*box].width > 0) {
            PushFrom(*box, boxes[*box].width, right);
        }
    }
    for (const int* box = list; box != listEnd; ++box) {
        if (boxes[*box].width > 0) {
            boxes[*box].left = m_clusters[Find(m_clusterOf[*box])].left;
        }
    }
    return true;
}

// One box pushes. What happens to another depends on its left edge and width alone, so the boxes of a cluster move
// together, those of the pusher's own cluster included.
void RowClusters::PushFrom(int box, int width, int right)
{
    const int own = Find(m_clusterOf[box]);
    const int left = m_clusters[own].left;
    const int end = left + width;
    // Nothing further left than the widest box is wide reaches the pusher.
    const auto first = std::partition_point(m_places.begin(), m_places.end(),
                                            [limit = left - m_widest](const Place& p) { return p.left <= limit; });
    m_pushed.clear();
    for (auto it = first; it != m_places.end() && it->left < end; ++it) {
        if (it->left + it->width > left && (it->cluster != own || m_clusters[own].count > 1)) {
            m_pushed.push_back(it - m_places.begin());
        }
    }
    // From right to left: those already moved have left the places that the next one passes.
    for (auto it = m_pushed.rbegin(); it != m_pushed.rend(); ++it) {
        const Place pushed = m_places[*it];
        const int pushedEnd = pushed.left + pushed.width;
        const int common = std::min(end, pushedEnd) - std::max(left, pushed.left);
        std::size_t position = *it;
        if (pushed.cluster == own) {
            // The pusher stays alone where its cluster was.
            --m_clusters[own].count;
            m_clusterOf[box] = NewCluster(left, 1);
            m_places.insert(m_places.begin() + position, Place{left, width, m_clusterOf[box]});
            ++position;
        }
        MoveTo(position, pushed.left + (pushedEnd + width > right ? common : width));
    }
}

// Moves the cluster at the position to the right; at the place of another of its width it becomes one with it.
void RowClusters::MoveTo(std::size_t position, int left)
{
    const Place moved{left, m_places[position].width, m_places[position].cluster};
    const auto from = m_places.begin() + position;
    const auto to = std::lower_bound(from + 1, m_places.end(), moved, IsBefore);
    std::move(from + 1, to, from);
    if (to != m_places.end() && to->left == moved.left && to->width == moved.width) {
        m_clusters[moved.cluster].parent = to->cluster;
        m_clusters[to->cluster].count += m_clusters[moved.cluster].count;
        m_places.erase(to - 1);
    } else {
        *(to - 1) = moved;
        m_clusters[moved.cluster].left = left;
    }
}

} // namespace dayvane
