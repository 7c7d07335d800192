#include <cmath>

#include "orbit/mSatModels.h"

namespace halvorine {

namespace {

/// The last round of Kepler's equation; sine and cosine are those before the last correction.
struct KeplerRound {
  double c = 0, s = 0, dnom = 0;
};

KeplerRound SolveKepler(double m, double e0) {
  constexpr double tolerance = 1e-5;
  constexpr int mostRounds = 10000;  // so that no set can hang the program
  KeplerRound k;
  double ea = m;
  double d = 1;
  for (int round = 0; round < mostRounds && std::fabs(d) >= tolerance; ++round) {
    k.c = std::cos(ea);
    k.s = std::sin(ea);
    k.dnom = 1 - e0 * k.c;
    d = Div(ea - e0 * k.s - m, k.dnom);
    ea = Finite(ea - d);
  }
  return k;
}

}  // namespace

void InitPlan13(const WorkingElementsRecord& elements, Plan13Terms& terms) {
  terms.M0 = elements.M0;
  terms.Node0 = elements.Node0;
  terms.Omega0 = elements.Omega0;
  terms.E0 = elements.E0;
  terms.N0 = elements.N0;
  terms.cosi = std::cos(elements.I0);
  terms.sini = std::sin(elements.I0);
  terms.ns = terms.N0 / 60;  // radians per second
  terms.a0 = Pow(Div(Div(398600.8, terms.ns), terms.ns), 1.0 / 3.0);
  terms.b0 = Sqrt(1 - Square(terms.E0)) * terms.a0;
  double pc = Div(terms.a0 * EarthRadius, Square(terms.b0));
  pc = pc * 0.001623924 * pc * terms.N0;
  terms.qd = -pc * terms.cosi;
  terms.wd = (5 * Square(terms.cosi) - 1) * pc / 2;
  terms.dc = Div(-2 * elements.NDot, terms.N0) / 3;
}

void RunPlan13(const Plan13Terms& terms, double tsince, OrbitVectors& out) {
  const double t = tsince;
  const double dt = terms.dc * t / 2;
  const double kd = 1 + 4 * dt;
  const double ko = 1 - 7 * dt;
  double m = (1 - 3 * dt) * (terms.N0 * t) + terms.M0;
  m = m - Int(m / TwoPi) * TwoPi;
  const KeplerRound k = SolveKepler(m, terms.E0);

  const double a = terms.a0 * kd;
  const double b = terms.b0 * kd;
  const double sx = (k.c - terms.E0) * a;
  const double sy = k.s * b;
  const double vx = Div(-a * k.s, k.dnom) * terms.ns;
  const double vy = Div(k.c * b, k.dnom) * terms.ns;
  const double ap = terms.wd * t * ko + terms.Omega0;
  const double cw = std::cos(ap);
  const double sw = std::sin(ap);
  const double raan = terms.qd * t * ko + terms.Node0;
  const double cq = std::cos(raan);
  const double sq = std::sin(raan);
  const double cxx = cw * cq - terms.cosi * sw * sq;
  const double cxy = -sw * cq - terms.cosi * cw * sq;
  const double cyx = terms.cosi * sw * cq + cw * sq;
  const double cyy = terms.cosi * cw * cq - sw * sq;
  const double czx = terms.sini * sw;
  const double czy = terms.sini * cw;
  out.position = {Finite(cxy * sy + sx * cxx), Finite(cyy * sy + sx * cyx), Finite(sx * czx + sy * czy)};
  out.velocity = {Finite(cxy * vy + vx * cxx), Finite(cyy * vy + vx * cyx), Finite(vx * czx + vy * czy)};
}

void PropagatePlan13(double tsince) {
  Plan13Terms terms;
  OrbitVectors vectors;
  InitPlan13(WorkingElements, terms);
  RunPlan13(terms, tsince, vectors);
  TakeOver(vectors);
}

}  // namespace halvorine
