#pragma once
#include <string>
#include <vector>

class COM_Color;
class GUI2D_Plotter;

/// Draws what a run has saved at its captors on a plotter, everywhere in the same way: names, colours and labels of
/// the curves, and the normalization of the field.
///
/// Captors have places from 0 on in a list, and numbers from 1 on in names. The fields go from red to blue from
/// captor to captor; the colour of a density element tells its place in the matrix, its system and its captor.
class GUI2D_CaptorCurves
{
public:
    using Values = std::vector<double>;

    /// A component of the field: its name, and which of the columns of a captor it draws.
    struct Component
    {
        const char* mName; ///< "Ex", "Ey" or "Ez".
        std::size_t mColumn;
    };
    /// An element of a density matrix, all from 0.
    struct Element
    {
        unsigned long mSystem;
        unsigned long mSystemsNumber; ///< At the captor.
        unsigned long mI;
        unsigned long mJ;
        unsigned long mSize; ///< Of the matrix.
    };

    /// Gives the plotter its title and its labels. `captorsNumber` counts also the captors that are not drawn.
    GUI2D_CaptorCurves(GUI2D_Plotter& plotter, unsigned long captorsNumber);

    /// Components of the field at the captor at place `k`, in V/m over the seconds. All columns count for the
    /// normalization. A column that is not there gives a curve without points.
    void addFields(unsigned long k, const Values& seconds, const std::vector<Values>& columns,
                   const std::vector<Component>& components);
    /// An element of a density matrix at the captor at place `k`.
    void addDensity(unsigned long k, const Element& element, const Values& seconds,
                    const Values& values);
    /// Divides the curves of the field by the greatest absolute value of them all, which the title tells. Nothing
    /// without such a curve.
    void normalize();

private:
    static std::string atCaptor(unsigned long k);
    /// Of the next captor with a field. The caller releases it.
    COM_Color* newFieldColor();

    GUI2D_Plotter& mPlotter;
    unsigned long mCaptorsNumber;
    double mMaxField = -1.0; ///< Greatest absolute value of a field; negative before any.
    bool mHasFields = false; ///< There is a curve of a field.
    unsigned long mColorCounter = 0;
};
