#pragma once
#include "quorvex/QV_Object.h"

#include <string>

class LA_RealVector;

/// The light that enters the medium at node 0: peak field, wavelength, duration and shape of the pulse.
///
/// At each step it gives two dimensionless vectors, one value for each field component: the value at the
/// boundary and that of a reference moving with the pulse. The peak field is 1 in them: `mFieldMaxValue`
/// only sets the Rabi frequency and the scale of the results. The shapes are written out in
/// docs/physics.md, "Pulses".
class QV_IncidentFields : public QV_Object
{
    COM_CLASS(QV_IncidentFields)
public:
    static constexpr unsigned char SINUS_TYPE = 0;
    static constexpr unsigned char SIT_TYPE = 1;
    static constexpr unsigned char PACKAGE_TYPE = 2;
    static constexpr unsigned char OSCILL1_TYPE = 3;
    static constexpr unsigned char OSCILL2_TYPE = 4;
    static constexpr unsigned char POMPE_SIT_TYPE = 5;
    static constexpr unsigned char MARCHE_TYPE = 6;
    static constexpr const char* mTypesName[] = {"sinus",   "SIT",       "PACKAGE", "OSCILL1",
                                                 "OSCILL2", "POMPE_SIT", "MARCHE"};
    static constexpr unsigned long mTypesNameLength = 7;
    static constexpr double TWO_PI_C =
        1883070636.561722; ///< Joins wavelength and frequency, rad m/s.

    /// Also sets the carrier's frequency.
    void setWaveLength(double waveLength);
    void setFieldMaxValue(double value) { mFieldMaxValue = value; }
    void setWavePackageDuration(double duration) { mWavePackageDuration = duration; }
    void setCFL(double cfl) { mCFL = cfl; }
    void setIncidentFieldsType(unsigned char type) { mType = type; }
    /// Ends the process with status 0 for a name that is none of `mTypesName`.
    void setIncidentFieldsType(const std::string& name);
    double getFieldMaxValue() const { return mFieldMaxValue; }
    double getWaveLength() const { return mWaveLength; }
    double getWavePackageDuration() const { return mWavePackageDuration; }
    double getCFL() const { return mCFL; }
    /// The shape of the pulse.
    unsigned char getTestType() const { return mType; }
    /// Angular frequency of the carrier, rad/s.
    double getFrequency() const { return mOmega0; }
    /// The scaled duration, in 1 / Rabi frequency: times pi / 20 the area of a pulse of type SIT.
    double getWavePackageDurationAdim() const { return mWavePackageDurationAdim; }
    double getFrequencyAdim() const { return mOmega0Adim; }
    /// Time step in s, with `cells` cells in a wavelength.
    double computeTimeStep(unsigned long cells) const;
    /// Rabi frequency in rad/s of the peak field at a dipole in C m.
    double computeRabiFrequency(double dipole) const { return mFieldMaxValue * dipole / HBAR; }
    /// Area of the light that enters, in units of pi: the integral of `rabiFrequency`, in rad/s, times
    /// the envelope. Shapes that last for ever have an infinite one, single cycles none, several pulses
    /// their sum. docs/physics.md, "Pulses".
    double computeArea(double rabiFrequency) const;
    /// Scales frequency and duration by the Rabi frequency.
    void adimensionize(double rabiFrequency);

    void setIncidentField(LA_RealVector* field);
    void setIncidentField(LA_RealVector& field) { setIncidentField(&field); }
    void resetIncidentField() { setIncidentField(nullptr); }
    void setMovingIncidentField(LA_RealVector* field);
    void setMovingIncidentField(LA_RealVector& field) { setMovingIncidentField(&field); }
    void resetMovingIncidentField() { setMovingIncidentField(nullptr); }
    /// The two vectors at time `t`, in 1 / Rabi frequency.
    LA_RealVector* getIncidentField(unsigned long dim, double t, double dt);
    LA_RealVector* getMovingIncidentField(unsigned long dim, double t, double dt);

    /// Fills both vectors for time `t`; they are made at the first call, with `dim` components, and keep
    /// that size. A time asked for twice in a row is not computed again, whatever `dt`. All components
    /// are alike, but of two the second is 0: the wave is polarized along the first. False, with nothing
    /// written, for a shape that does not exist.
    bool computeFields(unsigned long dim, double t, double dt);

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    QV_IncidentFields();
    ~QV_IncidentFields() override;

private:
    /// The shape at time `u`; the carrier runs with the step's own time `t`.
    double shape(double u, double t) const;

    double mFieldMaxValue = 8.537e9;          ///< Peak field, V/m.
    double mWaveLength = 1.5e-6;              ///< m.
    double mWavePackageDuration = 1e-13;      ///< s.
    double mWavePackageDurationAdim = 0.0;    ///< In 1 / Rabi frequency; 0 before the first run.
    double mCFL = 0.8;                        ///< Courant number.
    double mOmega0 = 1255380424374481.3;      ///< Carrier, rad/s.
    double mOmega0Adim = 0.0;                 ///< In Rabi frequencies; 0 before the first run.
    double mLastTimeFieldsComputation = -1.0; ///< Time the vectors hold; kept between runs.
    unsigned char mType = SIT_TYPE;           ///< Shape of the pulse.
    LA_RealVector* mIField = nullptr;         ///< Value at the boundary. Counted.
    LA_RealVector* mSField = nullptr;         ///< Value of the moving reference. Counted.
};
