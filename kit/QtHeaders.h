// SPDX-License-Identifier: MIT
// Compiled once for all widgets; files include what they use nevertheless.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>
