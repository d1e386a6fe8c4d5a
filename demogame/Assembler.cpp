#include "Assembler.h"

using namespace sm83;

void Assembler::label(const std::string &name)
{
    if (!m_labels.emplace(name, m_origin + int(m_code.size())).second) m_problems.push_back(name + " is placed twice");
}

void Assembler::alignTo(std::uint16_t size)
{
    while ((m_origin + m_code.size()) % size != 0)
        byte(0);
}

void Assembler::ld(Register accumulator, At from)
{
    accumulatorOnly(accumulator);
    if (from.address >= 0xFF00) {
        byte(0xF0), byte(from.address);
    } else {
        byte(0xFA), word(from.address);
    }
}

void Assembler::ld(At to, Register accumulator)
{
    accumulatorOnly(accumulator);
    if (to.address >= 0xFF00) {
        byte(0xE0), byte(to.address);
    } else {
        byte(0xEA), word(to.address);
    }
}

void Assembler::ldNext(Register accumulator, RegisterPair from)
{
    accumulatorOnly(accumulator);
    if (from != hl) m_problems.push_back("only HL steps on by itself");
    byte(0x2A);
}

void Assembler::ldNext(RegisterPair to, Register accumulator)
{
    accumulatorOnly(accumulator);
    if (to != hl) m_problems.push_back("only HL steps on by itself");
    byte(0x22);
}

void Assembler::accumulatorOnly(Register r)
{
    if (r != a) m_problems.push_back("only A is read from and written to memory by address");
}

void Assembler::reference(const std::string &label)
{
    m_gaps.push_back({m_code.size(), label, false});
    word(0);
}

void Assembler::distance(const std::string &label)
{
    m_gaps.push_back({m_code.size(), label, true});
    byte(0);
}

Bytes Assembler::finish()
{
    for (const Gap &gap : m_gaps) {
        if (const auto found = m_labels.find(gap.label); found != m_labels.end())
            fill(gap, found->second);
        else
            m_problems.push_back(gap.label + " is used but nowhere placed");
    }
    m_gaps.clear();
    return m_code;
}

void Assembler::fill(const Gap &gap, int target)
{
    if (!gap.relative) {
        m_code[gap.position] = std::uint8_t(target);
        m_code[gap.position + 1] = std::uint8_t(target >> 8);
        return;
    }
    const int distance = target - (m_origin + int(gap.position) + 1);
    if (distance < -128 || distance > 127) m_problems.push_back(gap.label + " is too far away for jr");
    m_code[gap.position] = std::uint8_t(distance);
}
