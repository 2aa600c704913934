#include "app/QtDialogs.h"

#include <gtest/gtest.h>

namespace quorvin {
namespace {

TEST(QtDialogs, FiltersBecomeNameFilters)
{
    EXPECT_EQ(nameFilters(QStringLiteral(" File dati EpiData (*.rec) |*.rec|File dati Tutti (*.*) |*.*")),
              QStringList({QStringLiteral("File dati EpiData (*.rec) (*.rec)"),
                           QStringLiteral("File dati Tutti (*.*) (*)")}));
    EXPECT_EQ(nameFilters(QStringLiteral("half")), QStringList());
}

}  // namespace
}  // namespace quorvin
