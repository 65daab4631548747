#include "support/clsGUID.h"

#include "support/Error.h"
#include "support/headless/SystemDoors.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <set>

using namespace support;

TEST(clsGUID, CreateGUID_WritesThirtyEightCharactersInUpperCase) {
    class Fixed : public Random {
    public:
        void Seed(double) override {}
        double Next() override { return 0; }
        std::array<std::uint8_t, 16> NewGuid() override {
            return {0x01, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef,
                    0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0xff};
        }
    };
    Fixed random;
    EXPECT_EQ(clsGUID().CreateGUID(random), "{01234567-89AB-CDEF-0011-2233445566FF}");
}

TEST(clsGUID, GetGUID_IsNewEachTimeAndPassesCheckGUID) {
    support::testing::ScriptedDesktop desktop;
    const QString first = GetGUID();
    const QString second = GetGUID();
    EXPECT_NE(first, second);
    EXPECT_TRUE(CheckGUID(first));
    EXPECT_TRUE(CheckGUID(second));
}

TEST(clsGUID, SystemRandom_MakesVersion4Guids) {
    SystemRandom random;
    const QString guid = clsGUID().CreateGUID(random);
    EXPECT_TRUE(CheckGUID(guid));
    EXPECT_EQ(guid[15], QChar('4'));
    EXPECT_TRUE(QString("89AB").contains(guid[20]));
    EXPECT_NE(guid, clsGUID().CreateGUID(random));
}

TEST(clsGUID, CheckGUID_AdmitsACommaAndLowerCase) {
    EXPECT_TRUE(CheckGUID("{0000000,-0000-0000-0000-000000000000}"));
    EXPECT_TRUE(CheckGUID("{abcdef01-89ab-cdef-0011-2233445566ff}"));
}

TEST(clsGUID, CheckGUID_RefusesOtherForms) {
    for (const char *text :
         {"", "{}", "01234567-89AB-CDEF-0011-2233445566FF", "{01234567-89AB-CDEF-0011-2233445566F}",
          "{01234567-89AB-CDEF-0011-2233445566FFF}", "{0123456G-89AB-CDEF-0011-2233445566FF}",
          "{01234567 89AB-CDEF-0011-2233445566FF}", " 01234567-89AB-CDEF-0011-2233445566FF}"})
        EXPECT_FALSE(CheckGUID(text)) << text;
}

TEST(clsGUID, GetRandom_SeedsFromTheTimerAndReachesBothEnds) {
    support::testing::ScriptedDesktop desktop;
    desktop.random.numbers = {0.0, 0.9999999, 0.5};
    EXPECT_EQ(GetRandom(1001, 32000), 1001);
    EXPECT_EQ(GetRandom(1001, 32000), 32000);
    EXPECT_EQ(GetRandom(-5, 5), 0);
    EXPECT_DOUBLE_EQ(desktop.random.lastSeed, 10.5 * 3600);
}

TEST(clsGUID, GetRandom_Above32767Overflows) {
    support::testing::ScriptedDesktop desktop;
    desktop.random.numbers = {0.5, 0.999999};
    EXPECT_EQ(GetRandom(0, 65534), 32767);
    const Error error = tests::ErrorOf([&] { GetRandom(0, 65534); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "Overflow");
}

TEST(SystemRandom, Seed_RepeatsTheSequenceAndOtherSeedsGiveOthers) {
    SystemRandom random;
    random.Seed(100);
    const double first = random.Next();
    random.Seed(100);
    EXPECT_EQ(random.Next(), first);
    std::set<double> firsts;
    for (int seed = 0; seed < 100; ++seed) {
        random.Seed(seed * 0.001);
        const double number = random.Next();
        EXPECT_GE(number, 0);
        EXPECT_LT(number, 1);
        firsts.insert(number);
    }
    EXPECT_EQ(firsts.size(), 100u);
}
