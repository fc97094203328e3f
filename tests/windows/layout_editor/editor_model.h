#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "core/number_text.h"
#include "core/val.h"
#include "windows/layout_editor/rnd.h"

namespace Morvane {

// The rules of the editor once more, without a window: what the tables, the controls and the files hold after
// each of the user's actions. Boxes are in the order width, height, left, top.
struct EditorModel {
  using Lines = std::vector<std::string>;

  LayoutTables tables;
  int onShow = 0;
  bool modified = false;
  std::string name;
  std::string opened;                  // the name that Esc goes back to
  std::optional<std::size_t> focused;  // the box that has the keyboard
  std::string selected;
  std::string caption;
  std::array<std::string, 4> boxes;
  int page = -1;  // selected option, -1 for neither
  int shape = -1;
  std::map<std::string, Lines> files;
  Rnd rnd;
  char separator = '.';

  double& Cell(std::size_t measure, int n) {
    CoverTable<double>* const all[] = {&tables.CopLarg, &tables.CopAlte, &tables.CopDistx, &tables.CopDisty};
    return (*all[measure])[static_cast<std::size_t>(n)];
  }
  std::optional<double>& Shape(int n) { return tables.CopForma[static_cast<std::size_t>(n)]; }
  std::string Text(double value) const { return NumberToText(value, separator); }
  static double ToTable(std::size_t measure, double mm) { return measure < 2 ? mm / 10 : mm / 10 / 2.54; }
  double Millimetres(std::size_t measure, int n) {
    return measure < 2 ? Cell(measure, n) * 10 : Cell(measure, n) * 10 * 2.54;
  }

  void Open(const std::string& entry) {
    opened = name;
    modified = false;
    boxes.fill("0");
    page = shape = -1;
    caption = "Ogg.01";
    onShow = 0;
    focused.reset();
    Select(entry);
  }

  void ChoosePage(int option) {
    if (page == option) return;
    page = option;
    if (tables.Orientamento != option) modified = true;
    tables.Orientamento = static_cast<std::int16_t>(option);
  }
  void ChooseShape(int option) {
    if (shape == option) return;
    shape = option;
    if (onShow == 0) onShow = 1;
    if (Shape(onShow).value_or(0) != option) modified = true;
    Shape(onShow) = option;
  }
  void Show(int n) {
    onShow = n;
    caption = "Ogg." + std::to_string(n / 10 % 10) + std::to_string(n % 10);
    ChooseShape(Shape(n).value_or(0) != 0);
    for (std::size_t i = 0; i < 4; ++i) boxes[i] = Text(Millimetres(i, n));
  }

  void Leave(std::size_t measure, const std::string& text) {
    boxes[measure] = text;
    const double value = ToTable(measure, Val(text));
    if (Cell(measure, onShow) != value) modified = true;
    Cell(measure, onShow) = value;
  }
  // What is typed counts when the keyboard leaves the box.
  void Type(std::size_t measure, const std::string& text) {
    if (focused != measure) LeaveBox();
    focused = measure;
    boxes[measure] = text;
  }
  void LeaveBox() {
    if (focused) Leave(*focused, boxes[*focused]);
    focused.reset();
  }
  void Step(std::size_t measure, int direction) {
    const double mm = Val(boxes[measure]);
    if (direction < 0 && !(mm > 1.99)) return;
    const bool before = modified;
    boxes[measure] = Text(mm + direction);
    Cell(measure, onShow) = ToTable(measure, Val(boxes[measure]));
    modified = before || measure != 2 || direction > 0;
  }
  void Add() {
    if (tables.NumCopertine == 100) return;
    const int n = ++tables.NumCopertine;
    Cell(0, n) = Cell(1, n) = 5;
    Cell(2, n) = (std::floor(rnd.Next() * 30) + 25) / 2.54 / 10;
    Cell(3, n) = (std::floor(rnd.Next() * 30) + 155) / 2.54 / 10;
    Show(n);
    modified = true;
  }
  void Remove() {
    if (tables.NumCopertine < 2) return;
    for (int n = onShow; n < tables.NumCopertine; ++n) {
      Shape(n) = Shape(n + 1);
      for (std::size_t i = 0; i < 4; ++i) Cell(i, n) = Cell(i, n + 1);
    }
    --tables.NumCopertine;
    Show(1);
    modified = true;
  }
  void Move(int by) {
    if (onShow + by >= 1 && onShow + by <= tables.NumCopertine) Show(onShow + by);
  }
  void Click(double xInches, double yInches) {
    for (int n = 1; n <= tables.NumCopertine; ++n) {
      const double x = xInches - Cell(2, n);
      const double y = yInches - Cell(3, n);
      if (x > 0 && y > 0 && x < Cell(0, n) / 2.54 && y < Cell(1, n) / 2.54) return Show(n);
    }
  }

  void Save() {
    modified = false;
    Lines lines = {"Pagina=" + std::to_string(tables.Orientamento)};
    for (int n = 1; n <= tables.NumCopertine; ++n) {
      const std::string number = std::to_string(n) + "=";
      const bool raw = caption == "Ogg." + std::string(n < 10 ? "0" : "") + std::to_string(n);
      const auto measure = [&](std::size_t i) { return raw ? boxes[i] : Text(Millimetres(i, n)); };
      lines.push_back("Copertina" + number + (Shape(n) ? Text(*Shape(n)) : ""));
      lines.push_back("Distx" + number + measure(2));
      lines.push_back("Disty" + number + measure(3));
      lines.push_back("Larg" + number + measure(0));
      lines.push_back("Alte" + number + measure(1));
    }
    files[name] = lines;
  }
  void Read(const Lines& lines) {
    for (const std::string& line : lines) {
      const std::size_t digits = line.find_first_of("0123456789=");
      const std::size_t equals = line.find('=');
      const std::string key = line.substr(0, digits);
      const int n = static_cast<int>(Val(line.substr(digits, equals - digits)));
      const double value = Val(line.substr(equals + 1));
      if (key == "Pagina") {
        tables.Orientamento = static_cast<std::int16_t>(value);
        ChoosePage(value != 0);
      } else if (key == "Copertina") {
        Shape(n) = value;
        tables.NumCopertine = static_cast<std::int16_t>(n);
        if (n == 1) ChooseShape(value != 0);
      } else {
        const std::size_t measure = key == "Larg" ? 0 : key == "Alte" ? 1 : key == "Distx" ? 2 : 3;
        Cell(measure, n) = ToTable(measure, value);
        if (n == 1) boxes[measure] = Text(value);
      }
    }
  }
  void Select(const std::string& entry) {
    selected = entry;
    modified = false;
    name = entry;
    Read(files.at(entry));
    Show(1);
  }
  void New(const std::string& newName) {
    name = newName;
    tables.NumCopertine = 1;
    onShow = 1;
    tables.Orientamento = 0;
    Cell(0, 1) = Cell(1, 1) = 10;
    Cell(2, 1) = Cell(3, 1) = 25 / 2.54;
    Save();
    if (newName != selected) Select(newName);
  }
  // `to` is free, or the file's own name.
  void Rename(const std::string& to) {
    modified = false;
    auto file = files.extract(selected);
    file.key() = to;
    files.insert(std::move(file));
    selected = name = to;
  }
};

}  // namespace Morvane
