#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "quorvex/QV_Object.h"

#include <string>

class GEO_Line;
class GEO_Object;
class GEO_Vertex;
class GEO_Volume;

/// The medium: refractive index, the mesh as zones by name, named boundary nodes, and the nodes at which
/// results are saved.
///
/// Nodes are vertices and carry the electric field and the densities; lines between them carry the
/// magnetic field. A line's number is that of its starting node.
class QV_Milieu : public QV_Object
{
public:
    static constexpr unsigned char FIRST_VERTEX = 0;
    static constexpr unsigned char SECOND_VERTEX = 1;
    static constexpr unsigned char BEFORE_LAST_VERTEX = 2;
    static constexpr unsigned char LAST_VERTEX = 3;
    static constexpr const char* FIRST_NODE = "FirstMilieuNode"; ///< First node of the active zone.
    static constexpr const char* LAST_NODE = "LastMilieuNode";   ///< Its last node.

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Builds the mesh anew; nothing of a former mesh stays unless somebody else holds it.
    virtual void create() = 0;

    void setIndice(double indice) { mIndice = indice; }
    double getIndice() const { return mIndice; }

    /// All nodes, in ascending order of their numbers, each once.
    void getVertices(COM_Array<GEO_Vertex>& vertices) const;
    /// All lines, likewise.
    void getLines(COM_Array<GEO_Line>& lines) const;
    /// The node that one of the constants names, node 0 for another number; null where there is none.
    GEO_Vertex* getVertex(unsigned char which) const;
    /// Number of the boundary node of that name, or -1 when there is none.
    long getBoundaryLocation(const std::string& name) const;
    /// Length of the line that starts at node 0, or -1 when there is none. The mesh is uniform, so this
    /// is the size of every cell.
    static double getCellLength();
    /// True when the mesh has at least three nodes and an active zone inside it.
    bool isMeshed() const;

    void addToSavingVertices(GEO_Vertex* vertex);
    void addToSavingVertices(GEO_Vertex& vertex) { addToSavingVertices(&vertex); }
    void addToSavingVertices(unsigned char which) { addToSavingVertices(getVertex(which)); }
    void removeFromSavingVertices(GEO_Vertex& vertex);
    void resetSavingVertices();
    /// The saving nodes, in ascending order of their numbers.
    void getSavingVertices(COM_Array<GEO_Vertex>& vertices) const;

    void setVolume(const std::string& name, GEO_Volume& volume);
    GEO_Volume* getVolume(const std::string& name) const { return mVolumes->get(name); }
    void resetVolumes();
    void setBoundaryWithName(const std::string& name, GEO_Object& boundary);
    GEO_Object* getBoundaryWithName(const std::string& name) const
    {
        return mBoundariesName->get(name);
    }
    void resetBoundaryWithName(const std::string& name);
    void resetBoundaries();

    /// Divides the coordinates of every node by `scale`; a scale of 0 changes nothing.
    void adimensionize(double scale);

protected:
    QV_Milieu();
    ~QV_Milieu() override;

private:
    double mIndice = 1.0;                       ///< Refractive index.
    COM_Map<std::string, GEO_Volume>* mVolumes; ///< Zones by name. Counted, never null.
    COM_Map<std::string, GEO_Object>*
        mBoundariesName;                        ///< Boundary nodes by name. Counted, never null.
    COM_Map<long, GEO_Vertex>* mSavingVertices; ///< Saving nodes by number. Counted, never null.
};
