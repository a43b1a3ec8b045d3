#include "quorvexPlot/SavedResults.h"

#include <cstdio>
#include <filesystem>

namespace {

std::string real(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%7.6e \t ", value);
    return text;
}

} // namespace

SavedResults::SavedResults(int captors, int dimension, int systems, int levels, int steps)
{
    std::filesystem::create_directory(path());
    std::string list;
    for (int k = 0; k < captors; ++k) {
        const std::string node = std::to_string(10 * (k + 1));
        list += "captors Location: " + node + " RelPosition: 0.250000 Position: (1.5) RhoSize: "
                + std::to_string(levels) + " BlochEquationsNumber: " + std::to_string(systems)
                + " EDim: " + std::to_string(dimension) + "\n";
        std::string fields;
        for (int s = 0; s < steps; ++s) {
            fields += real(s);
            for (int c = 0; c < dimension; ++c) {
                fields += real(field(k, s, c));
            }
            fields += "\n";
        }
        write("E_at_" + node + ".res", fields);
        for (int b = 0; b < systems; ++b) {
            std::string densities;
            for (int s = 0; s < steps; ++s) {
                densities += real(s) + "3 ";
                for (int e = 0; e < levels * levels; ++e) {
                    densities += real(density(s, e / levels, e % levels, b));
                }
                densities += "\n";
            }
            write("Rho_Bloch" + std::to_string(b) + "_at_" + node + ".res", densities);
        }
    }
    write("captors.res", list);
    std::string times;
    for (const double second : seconds(steps)) {
        times += real(second * 1e14) + real(1e14) + real(second) + "\n";
    }
    write("tps.res", times);
}

double SavedResults::field(int captor, int step, int component)
{
    return FIELD * (captor + 1) * (step % 4 - 1.5) / (component + 1);
}

double SavedResults::density(int step, int i, int j, int system)
{
    return 0.1 * (i + 2 * j) + 0.01 * system + 0.001 * step;
}

std::vector<double> SavedResults::seconds(int steps)
{
    std::vector<double> values;
    for (int s = 0; s < steps; ++s) {
        values.push_back(std::stod(real(PERIOD * (s + 1)))); // as the file has it
    }
    return values;
}

void SavedResults::write(const std::string& name, const std::string& text) const
{
    mDirectory.write("run/" + name, text);
}

void SavedResults::remove(const std::string& name) const
{
    std::filesystem::remove(mDirectory.path() / "run" / name);
}
