#include <ktl/diagram.hpp>

// An isobar has points on both sides of the dome.
int main() {
    namespace diagram = ktl::diagram;
    const diagram::Axes axes{{ktl::Property::s, false, 300.0}, {ktl::Property::h, false, 200.0}};
    const diagram::Line line = diagram::isoline(ktl::Property::p, 10.0, axes, {6.0, 8.0, 2400.0, 3400.0}, 0.05);
    return line.fault == diagram::Fault::none && line.pieces.size() == 2 && line.pieces[0].two_phase() ? 0 : 1;
}
