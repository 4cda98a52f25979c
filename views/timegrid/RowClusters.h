// The pushing of the boxes that share one row (see OverlapColumns.h), for as many boxes as one likes.
#pragma once

#include <cstddef>
#include <vector>

namespace dayvane {

// A box as the rule sees it, pixels.
struct RowBox
{
    int left;
    int width; // above 0, or the box overlaps nothing
};

// Boxes at the same left edge with the same width form a cluster. Keeps its memory from row to row.
class RowClusters
{
public:
    // Each listed box (list .. listEnd: indices), in the order of the list, pushes all others of the list that it
    // overlaps to the right: by its own width when the pushed box then still ends at or before `right`, else by the
    // width of what overlaps. Returns whether any box was pushed.
    bool Spread(std::vector<RowBox>& boxes, const int* list, const int* listEnd, int right);

private:
    // A cluster that stands somewhere; the row is kept in the order of left edge and width, no two alike.
    struct Place
    {
        int left;
        int width;
        int cluster;
    };
    struct Cluster
    {
        int left;
        int count;  // boxes in it
        int parent; // itself, or the cluster that it has run into
    };

    static bool IsBefore(const Place& a, const Place& b)
    {
        return a.left != b.left ? a.left < b.left : a.width < b.width;
    }
    int Find(int cluster);
    int NewCluster(int left, int count);
    bool Overlaps(const std::vector<RowBox>& boxes, const int* list, const int* listEnd);
    void MakeClusters(std::size_t boxCount);
    void PushFrom(int box, int width, int right);
    void MoveTo(std::size_t position, int left);

    std::vector<Place> m_places;
    std::vector<Cluster> m_clusters;
    std::vector<int> m_clusterOf; // of each box of the list, by its index
    std::vector<std::size_t> m_pushed;
    int m_widest = 0;
};

} // namespace dayvane
