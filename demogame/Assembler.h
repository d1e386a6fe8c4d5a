#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

namespace sm83 {

/// Registers of the Game Boy's processor, numbered as its instructions number them. `atHL` is the byte that HL points
/// to.
enum Register { b, c, d, e, h, l, atHL, a };
enum RegisterPair { bc, de, hl, sp };
enum Condition { ifNotZero, ifZero, ifNoCarry, ifCarry };

}

/// A byte of memory with a fixed address.
struct At {
    std::uint16_t address;
};

/// Writes machine code for the Game Boy's processor (SM83), as far as the demo game needs it. Functions carry the
/// processor's own names. A label may be used before it is placed; `finish` fills the gaps.
class Assembler {
public:
    using Register = sm83::Register;
    using RegisterPair = sm83::RegisterPair;
    using Condition = sm83::Condition;

    explicit Assembler(std::uint16_t origin) : m_origin(origin) { }

    void label(const std::string &name); ///< names the next byte
    void bytes(const Bytes &data) { m_code.insert(m_code.end(), data.begin(), data.end()); }
    void alignTo(std::uint16_t size); ///< fills with zeros up to the next multiple of `size`

    void ld(Register to, Register from) { byte(0x40 | to << 3 | from); }
    void ld(Register to, int value) { byte(0x06 | to << 3), byte(value); }
    void ld(RegisterPair to, int value) { byte(0x01 | to << 4), word(value); }
    void ld(RegisterPair to, const std::string &label) { byte(0x01 | to << 4), reference(label); }
    void ld(Register accumulator, At from); ///< A only; takes the short form for the page of the hardware
    void ld(At to, Register accumulator); ///< the same
    void ldFromDE() { byte(0x1A); } ///< A from (DE)
    void ldToDE() { byte(0x12); } ///< A to (DE)
    void ldNext(Register accumulator, RegisterPair from); ///< A from (HL), then HL + 1
    void ldNext(RegisterPair to, Register accumulator); ///< A to (HL), then HL + 1

    void inc(Register r) { byte(0x04 | r << 3); }
    void dec(Register r) { byte(0x05 | r << 3); }
    void inc(RegisterPair r) { byte(0x03 | r << 4); }
    void dec(RegisterPair r) { byte(0x0B | r << 4); }
    void addHL(RegisterPair r) { byte(0x09 | r << 4); }

    void add(Register r) { byte(0x80 | r); }
    void sub(Register r) { byte(0x90 | r); }
    void And(Register r) { byte(0xA0 | r); }
    void Or(Register r) { byte(0xB0 | r); }
    void cp(Register r) { byte(0xB8 | r); }
    void add(int value) { byte(0xC6), byte(value); }
    void adc(int value) { byte(0xCE), byte(value); }
    void sub(int value) { byte(0xD6), byte(value); }
    void sbc(int value) { byte(0xDE), byte(value); }
    void And(int value) { byte(0xE6), byte(value); }
    void cp(int value) { byte(0xFE), byte(value); }
    void cpl() { byte(0x2F); }
    void daa() { byte(0x27); }
    void swap(Register r) { byte(0xCB), byte(0x30 | r); }
    void srl(Register r) { byte(0xCB), byte(0x38 | r); }
    void bit(int number, Register r) { byte(0xCB), byte(0x40 | number << 3 | r); }

    void jr(const std::string &label) { byte(0x18), distance(label); }
    void jr(Condition when, const std::string &label) { byte(0x20 | when << 3), distance(label); }
    void jp(const std::string &label) { byte(0xC3), reference(label); }
    void call(const std::string &label) { byte(0xCD), reference(label); }
    void call(int address) { byte(0xCD), word(address); }
    void ret() { byte(0xC9); }
    void ret(Condition when) { byte(0xC0 | when << 3); }
    void push(RegisterPair r) { byte(0xC5 | r << 4); }
    void pop(RegisterPair r) { byte(0xC1 | r << 4); }
    void di() { byte(0xF3); }
    void ei() { byte(0xFB); }
    void halt() { byte(0x76), nop(); }
    void nop() { byte(0x00); }

    /// The finished code. What was wrong with it (a label missing, placed twice or too far away) is in `problems`.
    Bytes finish();
    const std::vector<std::string> &problems() const { return m_problems; }

private:
    struct Gap {
        std::size_t position;
        std::string label;
        bool relative;
    };

    void byte(int value) { m_code.push_back(std::uint8_t(value)); }
    void word(int value) { byte(value), byte(value >> 8); }
    void reference(const std::string &label);
    void distance(const std::string &label);
    void fill(const Gap &gap, int target);
    void accumulatorOnly(Register r);

    std::uint16_t m_origin;
    Bytes m_code;
    std::map<std::string, int> m_labels;
    std::vector<Gap> m_gaps;
    std::vector<std::string> m_problems;
};
