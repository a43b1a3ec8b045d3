#include "quorvexRun/OlderFiles.h"

#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

std::string OlderFiles::keywords()
{
    return "Two levels, a short pulse.\n"
           "&dim n=2 / levels\n"
           "&type_test test='SIT' / the word chooses the ends\n"
           "&champ Emax=8.537e9 lambda=1.5e-6 t_on=4.0D-15\n"
           "       Einc='SIT' /\n"
           "&autres na=1.0e24 ind=1.0 temper=300.0 relaxation='' /\n"
           "&numerique type_split='hrn' methode='Split' CFL=0.8 parlambda=20 conv=1.0e-6/\n"
           "&geom debut=0.1 fin=0.9 long=3.0375e-6 maxt=20 /\n"
           "&ES z1=0.3 z2=0.5 z3=0.7 /\n";
}

std::string OlderFiles::keywordsWith(const std::string& from, const std::string& to)
{
    std::string text = keywords();
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

std::string OlderFiles::matrices()
{
    return "0.0 1.256e15 frequencies of the levels\n"
           "(1.0,0.0) (0.0,0.0) density at the start\n"
           "(0.0,0.0) (0.0,0.0)\n"
           "0.0 1.0e-29 dipoles\n"
           "1.0e-29 0.0\n"
           "0.0 1.0e8 longitudinal rates\n"
           "1.0e8 0.0\n"
           "1.0e12 transversal rate\n";
}

void OlderFiles::write(const TestDirectory& directory, const std::string& name)
{
    write(directory, name, keywords());
}

void OlderFiles::write(const TestDirectory& directory, const std::string& name,
                       const std::string& keywords)
{
    std::filesystem::create_directory(directory.path() / name);
    directory.write(name + "/qv1.dat", keywords);
    directory.write(name + "/" + MATRIX_FILE, matrices());
}
