/* Has all that it declares:
   struct Nothing {}; */
#pragma once

#define XE_DIGITS(name) \
    struct name {};

namespace xe {

template <class Char>
bool isDigit(Char ch);

template <class Char>
bool isDigit(Char ch)
{
    const auto between = [](Char left, Char middle, Char right) { return left <= middle && middle <= right; };
    return between('0', ch, '9');
}

class Digits : public std::vector<char>
{
    Q_DISABLE_COPY(Digits)

public:
    Digits() = default;
    virtual ~Digits() = default;
    virtual int count() const = 0;
    int first() const { return size() ? 1 : 0; }

private:
    template <class Write>
    void write(Write write);

    int m_count = int(0);
};

template <class Write>
void Digits::write(Write write)
{
    write('{');
}

} // namespace xe
