// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QJsonValue>
#include <QStringList>
#include <QVariant>

// Any value the library hands over, printed through its type alone: a record by its gadget
// properties, lists and maps item by item, enumerations by their key names. No record has a
// printer of its own.
namespace vms_cli {

// Lines "label: value", nested records and lists indented by two spaces per level. Lists
// longer than maxItems show their first items and how many more there are (-1: all).
QStringList valueLines(const QString& label, const QVariant& value, int maxItems = -1,
                       int indent = 0);
QString scalarText(const QVariant& value);
QJsonValue valueJson(const QVariant& value);

// "PresetOperCall" for a PresetOper of 1; empty for a value or type that is not a public
// enumeration.
QString enumKey(int metaType, int value);
// The value of a key name of the enumeration; -1 when it has no such key.
int enumValue(int metaType, const QString& key);

// A value inside a value: "presets.0.presetName" reads a property, a list item or a map entry
// by each dotted part. Invalid when there is no such part.
QVariant pick(const QVariant& value, const QString& path);

} // namespace vms_cli
