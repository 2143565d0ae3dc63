// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The times and dates of answers: the shape devices write is read without the general format
// parser, and everything else must come out exactly as that parser reads it.
#include "vms_sdk/json_methods/answer_fields.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace vms_sdk::json_methods;

namespace {

QJsonValue json(const char* text)
{
    return QJsonDocument::fromJson(QByteArray("[") + text + "]").array().at(0);
}

struct TimeCase
{
    const char* json;
    QDateTime expected; // invalid: the text is no time
};

TEST(AnswerFields, DateTimes)
{
    const TimeCase cases[] = {
        {R"("2024-03-01 00:00:00")", QDateTime(QDate(2024, 3, 1), QTime(0, 0, 0))},
        {R"("2024-03-10 10:14:59")", QDateTime(QDate(2024, 3, 10), QTime(10, 14, 59))},
        {R"("1999-12-31 23:59:59")", QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59))},
        {R"("2024-02-29 12:00:00")", QDateTime(QDate(2024, 2, 29), QTime(12, 0, 0))},
        // Of the right shape but no time at all.
        {R"("2023-02-29 12:00:00")", {}},
        {R"("2024-13-01 12:00:00")", {}},
        {R"("2024-03-01 24:00:00")", {}},
        {R"("2024-03-01 10:60:00")", {}},
        {R"("2024-03-01 10:00:60")", {}},
        {R"("2024-03-01T10:00:00")", {}},
        {R"("2024/03/01 10:00:00")", {}},
        {R"("2024-03-01 1a:00:00")", {}},
        {R"("2024-03-01")", {}},
        {R"("")", {}},
        {"20240301", {}},
        {"null", {}},
    };
    for (const TimeCase& c : cases) {
        QDateTime value = QDateTime(QDate(2000, 1, 1), QTime(1, 2, 3));
        readValue(json(c.json), value);
        EXPECT_EQ(value, c.expected) << c.json;
        EXPECT_EQ(value.isValid(), c.expected.isValid()) << c.json;
        // The general parser is the reference for every text, read the short way or not.
        EXPECT_EQ(value, QDateTime::fromString(json(c.json).toString(),
                                               QLatin1String(AnswerDateTimeFormat)))
            << c.json;
    }
}

struct DateCase
{
    const char* json;
    QDate expected;
};

TEST(AnswerFields, Dates)
{
    const DateCase cases[] = {
        {R"("2024-03-01")", QDate(2024, 3, 1)},
        {R"("2000-02-29")", QDate(2000, 2, 29)},
        {R"("1900-02-29")", {}},
        {R"("2024-00-10")", {}},
        {R"("2024-03-32")", {}},
        {R"("2024-3-1x")", {}},
        {R"("2024-03-01 00:00:00")", {}},
        {R"("")", {}},
        {"true", {}},
    };
    for (const DateCase& c : cases) {
        QDate value(2000, 1, 1);
        readValue(json(c.json), value);
        EXPECT_EQ(value, c.expected) << c.json;
    }
}

// Text fields take strings as they are and numbers and flags as their text.
TEST(AnswerFields, Texts)
{
    const std::pair<const char*, QString> cases[] = {
        {R"("cam-1")", QStringLiteral("cam-1")},
        {R"("Kamera Süd")", QStringLiteral("Kamera Süd")},
        {R"("")", QString()},
        {"42", QStringLiteral("42")},
        {"2.5", QStringLiteral("2.5")},
        {"true", QStringLiteral("true")},
        {"null", QStringLiteral("kept")},
        {"[1]", QStringLiteral("kept")},
    };
    for (const auto& [text, expected] : cases) {
        QString value = QStringLiteral("kept");
        readValue(json(text), value);
        EXPECT_EQ(value, expected) << text;
    }
}

} // namespace
