// Text in columns, each as wide as its widest cell. Cells are UTF-8, and a character counts as one column.
#pragma once

#include <string>
#include <vector>

class Table {
public:
    explicit Table(std::vector<std::string> headers) { Add(std::move(headers)); }
    void Add(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }
    std::string Text() const;

private:
    std::vector<std::vector<std::string>> rows;
};
