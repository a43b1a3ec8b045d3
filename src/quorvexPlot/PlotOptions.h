#pragma once
#include <optional>
#include <string>
#include <vector>

/// The command line of `quorvex-plot`.
struct PlotOptions
{
    /// An element of the density matrix of a system, all from 0.
    struct Density
    {
        unsigned long mI;
        unsigned long mJ;
        unsigned long mSystem;

        friend bool operator==(const Density&, const Density&) = default;
    };

    static constexpr const char* COMPONENTS[] = {"Ex", "Ey", "Ez"};
    static constexpr int MIN_SIZE = 100; ///< Pixels.
    static constexpr int MAX_SIZE = 8192;

    std::string mResults;                ///< Directory of the results.
    std::string mOutput;                 ///< File of the picture.
    std::string mFormat;                 ///< Extension of the picture, in small letters.
    std::vector<unsigned long> mCaptors; ///< Numbers from 1, each once; empty: all.
    std::vector<unsigned long> mFields;  ///< Places in `COMPONENTS`, each once, ascending.
    std::vector<Density> mDensities;     ///< Each once, in the order of the command line.
    int mWidth = 800;                    ///< Pixels.
    int mHeight = 500;
    std::optional<std::string> mTitle; ///< The plotter's own without one.
    bool mIsLogX = false;
    bool mIsLogY = false;
    bool mIsFourier = false;
    bool mIsNormalized = false;
    bool mIsHelp = false;
    bool mIsVersion = false;

    /// Reads the command line; throws PlotError.
    static PlotOptions parse(int argc, char** argv);
    static std::string helpText();

    bool isTransformed() const { return mIsLogX || mIsLogY || mIsFourier; }
    /// Draws all components that were saved: nothing else was asked for.
    bool isEveryField() const { return mFields.empty() && mDensities.empty(); }
};
