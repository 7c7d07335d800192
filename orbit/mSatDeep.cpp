// Lunar and solar terms, resonances with the Earth's rotation. Constants and names are the report's.
#include <cmath>

#include "orbit/mSatModels.h"

namespace halvorine {

namespace {

constexpr double zns = 1.19459e-5;     // solar mean motion, radians per minute
constexpr double znl = 0.00015835218;  // lunar
constexpr double thdt = 0.0043752691;  // the Earth's rotation, radians per minute
constexpr double step = 720;           // minutes
constexpr double step2 = 259200;
constexpr double furthest = 500000 * step;  // about 700 years; beyond, the steps would hold up the program

/// Sun or Moon as the disturbing body of one pass of the initialisation.
struct Body {
  double zcosg = 0, zsing = 0, zcosi = 0, zsini = 0, zcosh = 0, zsinh = 0, cc = 0, zn = 0, ze = 0;
};

/// What a pass gives: secular rates and coefficients of the periodic terms.
struct BodyTerms {
  double se = 0, si = 0, sl = 0, sgh = 0, sh = 0;
  double ee2 = 0, e3 = 0, xi2 = 0, xi3 = 0, xl2 = 0, xl3 = 0, xl4 = 0, xgh2 = 0, xgh3 = 0, xgh4 = 0, xh2 = 0,
         xh3 = 0;
};

/// Quantities of the Moon that depend on the day alone.
void InitLunarDay(double day, DeepStateRecord& k) {
  if (day == k.Preep) return;
  k.Preep = day;
  const double xnodce = 4.523602 - 0.00092422029 * day;
  const double stem = std::sin(xnodce);
  const double ctem = std::cos(xnodce);
  k.Zcosil = 0.91375164 - 0.03568096 * ctem;
  k.Zsinil = Sqrt(1 - Square(k.Zcosil));
  k.Zsinhl = Div(0.089683511 * stem, k.Zsinil);
  k.Zcoshl = Sqrt(1 - Square(k.Zsinhl));
  const double c = 4.7199672 + 0.2299715 * day;
  const double gam = 5.8351514 + 0.001944368 * day;
  k.Zmol = Fmod2Pi(c - gam);
  double zx = Div(0.39785416 * stem, k.Zsinil);
  const double zy = k.Zcoshl * ctem + 0.91744867 * k.Zsinhl * stem;
  zx = ArcTan2Positive(zx, zy);
  zx = gam + zx - xnodce;
  k.Zcosgl = std::cos(zx);
  k.Zsingl = std::sin(zx);
  k.Zmos = Fmod2Pi(6.2565837 + 0.017201977 * day);
}

BodyTerms PassOf(const Body& b, const WorkingElementsRecord& w, double xqncl) {
  const double cosio = w.Cosio;
  const double sinio = w.Sinio;
  const double eqsq = w.Eosq;
  const double a1 = b.zcosg * b.zcosh + b.zsing * b.zcosi * b.zsinh;
  const double a3 = -b.zsing * b.zcosh + b.zcosg * b.zcosi * b.zsinh;
  const double a7 = -b.zcosg * b.zsinh + b.zsing * b.zcosi * b.zcosh;
  const double a8 = b.zsing * b.zsini;
  const double a9 = b.zsing * b.zsinh + b.zcosg * b.zcosi * b.zcosh;
  const double a10 = b.zcosg * b.zsini;
  const double a2 = cosio * a7 + sinio * a8;
  const double a4 = cosio * a9 + sinio * a10;
  const double a5 = -sinio * a7 + cosio * a8;
  const double a6 = -sinio * a9 + cosio * a10;

  const double x1 = a1 * w.Cosg + a2 * w.Sing;
  const double x2 = a3 * w.Cosg + a4 * w.Sing;
  const double x3 = -a1 * w.Sing + a2 * w.Cosg;
  const double x4 = -a3 * w.Sing + a4 * w.Cosg;
  const double x5 = a5 * w.Sing;
  const double x6 = a6 * w.Sing;
  const double x7 = a5 * w.Cosg;
  const double x8 = a6 * w.Cosg;

  const double z31 = 12 * Square(x1) - 3 * Square(x3);
  const double z32 = 24 * x1 * x2 - 6 * x3 * x4;
  const double z33 = 12 * Square(x2) - 3 * Square(x4);
  double z1 = 3 * (Square(a1) + Square(a2)) + z31 * eqsq;
  double z2 = 6 * (a1 * a3 + a2 * a4) + z32 * eqsq;
  double z3 = 3 * (Square(a3) + Square(a4)) + z33 * eqsq;
  const double z11 = -6 * a1 * a5 + eqsq * (-24 * x1 * x7 - 6 * x3 * x5);
  const double z12 = -6 * (a1 * a6 + a3 * a5) + eqsq * (-24 * (x2 * x7 + x1 * x8) - 6 * (x3 * x6 + x4 * x5));
  const double z13 = -6 * a3 * a6 + eqsq * (-24 * x2 * x8 - 6 * x4 * x6);
  const double z21 = 6 * a2 * a5 + eqsq * (24 * x1 * x5 - 6 * x3 * x7);
  const double z22 = 6 * (a4 * a5 + a2 * a6) + eqsq * (24 * (x2 * x5 + x1 * x6) - 6 * (x4 * x7 + x3 * x8));
  const double z23 = 6 * a4 * a6 + eqsq * (24 * x2 * x6 - 6 * x4 * x8);
  z1 = 2 * z1 + w.Betao2 * z31;
  z2 = 2 * z2 + w.Betao2 * z32;
  z3 = 2 * z3 + w.Betao2 * z33;

  const double s3 = b.cc * Div(1.0, w.Xnodp);
  const double s2 = Div(-0.5 * s3, w.Betao);
  const double s4 = s3 * w.Betao;
  const double s1 = -15 * w.E0 * s4;
  const double s5 = x1 * x3 + x2 * x4;
  const double s6 = x2 * x3 + x1 * x4;
  const double s7 = x2 * x4 - x1 * x3;

  BodyTerms terms;
  terms.se = s1 * b.zn * s5;
  terms.si = s2 * b.zn * (z11 + z13);
  terms.sl = -b.zn * s3 * (z1 + z3 - 14 - 6 * eqsq);
  terms.sgh = s4 * b.zn * (z31 + z33 - 6);
  terms.sh = xqncl < 0.052359877 ? 0.0 : -b.zn * s2 * (z21 + z23);
  terms.ee2 = 2 * s1 * s6;
  terms.e3 = 2 * s1 * s7;
  terms.xi2 = 2 * s2 * z12;
  terms.xi3 = 2 * s2 * (z13 - z11);
  terms.xl2 = -2 * s3 * z2;
  terms.xl3 = -2 * s3 * (z3 - z1);
  terms.xl4 = -2 * s3 * (-21 - 9 * eqsq) * b.ze;
  terms.xgh2 = 2 * s4 * z32;
  terms.xgh3 = 2 * s4 * (z33 - z31);
  terms.xgh4 = -18 * s4 * b.ze;
  terms.xh2 = -2 * s2 * z22;
  terms.xh3 = -2 * s2 * (z23 - z21);
  return terms;
}

void InitSolar(const WorkingElementsRecord& w, double cosq, double sinq, DeepStateRecord& k) {
  Body sun;
  sun.zcosg = 0.1945905;
  sun.zsing = -0.98088458;
  sun.zcosi = 0.91744867;
  sun.zsini = 0.39785416;
  sun.zcosh = cosq;
  sun.zsinh = sinq;
  sun.cc = 2.9864797e-6;
  sun.zn = zns;
  sun.ze = 0.01675;
  const BodyTerms terms = PassOf(sun, w, k.xqncl);
  k.sse = terms.se;
  k.ssi = terms.si;
  k.ssl = terms.sl;
  k.ssh = Div(terms.sh, w.Sinio);
  k.ssg = terms.sgh - w.Cosio * k.ssh;
  k.se2 = terms.ee2;
  k.se3 = terms.e3;
  k.si2 = terms.xi2;
  k.si3 = terms.xi3;
  k.sl2 = terms.xl2;
  k.sl3 = terms.xl3;
  k.sl4 = terms.xl4;
  k.sgh2 = terms.xgh2;
  k.sgh3 = terms.xgh3;
  k.sgh4 = terms.xgh4;
  k.sh2 = terms.xh2;
  k.sh3 = terms.xh3;
}

void InitLunar(const WorkingElementsRecord& w, double cosq, double sinq, DeepStateRecord& k) {
  Body moon;
  moon.zcosg = k.Zcosgl;
  moon.zsing = k.Zsingl;
  moon.zcosi = k.Zcosil;
  moon.zsini = k.Zsinil;
  moon.zcosh = k.Zcoshl * cosq + k.Zsinhl * sinq;
  moon.zsinh = sinq * k.Zcoshl - cosq * k.Zsinhl;
  moon.cc = 4.7968065e-7;
  moon.zn = znl;
  moon.ze = 0.0549;
  const BodyTerms terms = PassOf(moon, w, k.xqncl);
  k.sse += terms.se;
  k.ssi += terms.si;
  k.ssl += terms.sl;
  k.ssg += terms.sgh - Div(w.Cosio, w.Sinio) * terms.sh;
  k.ssh += Div(terms.sh, w.Sinio);
  k.ee2 = terms.ee2;
  k.e3 = terms.e3;
  k.xi2 = terms.xi2;
  k.xi3 = terms.xi3;
  k.xl2 = terms.xl2;
  k.xl3 = terms.xl3;
  k.xl4 = terms.xl4;
  k.xgh2 = terms.xgh2;
  k.xgh3 = terms.xgh3;
  k.xgh4 = terms.xgh4;
  k.xh2 = terms.xh2;
  k.xh3 = terms.xh3;
}

/// Gives the rate that the resonance leaves.
double InitSynchronous(const WorkingElementsRecord& w, double aqnv, DeepStateRecord& k) {
  const double cosio = w.Cosio;
  const double eqsq = w.Eosq;
  const double g200 = 1 + eqsq * (-2.5 + 0.8125 * eqsq);
  const double g310 = 1 + 2 * eqsq;
  const double g300 = 1 + eqsq * (-6 + 6.60937 * eqsq);
  const double f220 = 0.75 * Square(1 + cosio);
  const double f311 = 0.9375 * Square(w.Sinio) * (1 + 3 * cosio) - 0.75 * (1 + cosio);
  const double f330 = 1.875 * Cube(1 + cosio);
  const double del1 = 3 * Square(k.xnq) * Square(aqnv);
  k.del2 = 2 * del1 * f220 * g200 * 1.7891679e-6;
  k.del3 = 3 * del1 * f330 * g300 * 2.2123015e-7 * aqnv;
  k.del1 = del1 * f311 * g310 * 2.1460748e-6 * aqnv;
  k.xlamo = w.M0 + w.Node0 + w.Omega0 - k.thgr;
  const double xpidot = w.Omgdot + w.Xnodot;
  return w.Xmdot + xpidot - thdt + k.ssl + k.ssg + k.ssh;
}

/// c0 + c1*eq + c2*eqsq + c3*eoc
struct Cubic {
  double c0, c1, c2, c3;
};

double ValueOf(const Cubic& c, double eq, double eqsq) {
  return c.c0 + c.c1 * eq + c.c2 * eqsq + c.c3 * (eq * eqsq);
}

/// Eccentricity functions of the half-day resonance.
struct EccentricityFunctions {
  double g201, g211, g310, g322, g410, g422, g520, g533, g521, g532;
};

EccentricityFunctions FunctionsOf(double eq, double eqsq) {
  const auto choose = [eq, eqsq](bool upper, const Cubic& below, const Cubic& above) {
    return ValueOf(upper ? above : below, eq, eqsq);
  };
  const bool high = eq > 0.65;
  const bool higher = eq >= 0.7;
  EccentricityFunctions g{};
  g.g201 = -0.306 - (eq - 0.64) * 0.44;
  g.g211 = choose(high, {3.616, -13.247, 16.29, 0}, {-72.099, 331.819, -508.738, 266.724});
  g.g310 = choose(high, {-19.302, 117.39, -228.419, 156.591}, {-346.844, 1582.851, -2415.925, 1246.113});
  g.g322 = choose(high, {-18.9068, 109.7927, -214.6334, 146.5816}, {-342.585, 1554.908, -2366.899, 1215.972});
  g.g410 = choose(high, {-41.122, 242.694, -471.094, 313.953}, {-1052.797, 4758.686, -7193.992, 3651.957});
  g.g422 = choose(high, {-146.407, 841.88, -1629.014, 1083.435}, {-3581.69, 16178.11, -24462.77, 12422.52});
  g.g520 =
      !high ? ValueOf({-532.114, 3017.977, -5740, 3708.276}, eq, eqsq)
            : choose(eq > 0.715, {1464.74, -4664.75, 3763.64, 0}, {-5149.66, 29936.92, -54087.36, 31324.56});
  g.g533 =
      choose(higher, {-919.2277, 4988.61, -9064.77, 5542.21}, {-37995.78, 161616.52, -229838.2, 109377.94});
  g.g521 = choose(higher, {-822.71072, 4568.6173, -8491.4146, 5337.524},
                  {-51752.104, 218913.95, -309468.16, 146349.42});
  g.g532 =
      choose(higher, {-853.666, 4690.25, -8624.77, 5341.4}, {-40023.88, 170470.89, -242699.48, 115605.82});
  return g;
}

/// Gives the rate that the resonance leaves.
double InitHalfDay(const WorkingElementsRecord& w, double aqnv, DeepStateRecord& k) {
  const double cosio = w.Cosio;
  const double sinio = w.Sinio;
  const double sini2 = Square(sinio);
  const double theta2 = w.Theta2;
  const EccentricityFunctions g = FunctionsOf(w.E0, w.Eosq);
  const double f220 = 0.75 * (1 + 2 * cosio + theta2);
  const double f221 = 1.5 * sini2;
  const double f321 = 1.875 * sinio * (1 - 2 * cosio - 3 * theta2);
  const double f322 = -1.875 * sinio * (1 + 2 * cosio - 3 * theta2);
  const double f441 = 35 * sini2 * f220;
  const double f442 = 39.375 * Square(sini2);
  const double f522 =
      9.84375 * sinio * (sini2 * (1 - 2 * cosio - 5 * theta2) + 0.33333333 * (-2 + 4 * cosio + 6 * theta2));
  const double f523 = sinio * (4.92187512 * sini2 * (-2 - 4 * cosio + 10 * theta2) +
                               6.56250012 * (1 + 2 * cosio - 3 * theta2));
  const double f542 = 29.53125 * sinio * (2 - 8 * cosio + theta2 * (-12 + 8 * cosio + 10 * theta2));
  const double f543 = 29.53125 * sinio * (-2 - 8 * cosio + theta2 * (12 + 8 * cosio - 10 * theta2));
  double temp1 = 3 * Square(k.xnq) * Square(aqnv);
  double temp = temp1 * 1.7891679e-6;
  k.d2201 = temp * f220 * g.g201;
  k.d2211 = temp * f221 * g.g211;
  temp1 = temp1 * aqnv;
  temp = temp1 * 3.7393792e-7;
  k.d3210 = temp * f321 * g.g310;
  k.d3222 = temp * f322 * g.g322;
  temp1 = temp1 * aqnv;
  temp = 2 * temp1 * 7.3636953e-9;
  k.d4410 = temp * f441 * g.g410;
  k.d4422 = temp * f442 * g.g422;
  temp1 = temp1 * aqnv;
  temp = temp1 * 1.1428639e-7;
  k.d5220 = temp * f522 * g.g520;
  k.d5232 = temp * f523 * g.g532;
  temp = 2 * temp1 * 2.1765803e-9;
  k.d5421 = temp * f542 * g.g521;
  k.d5433 = temp * f543 * g.g533;
  k.xlamo = w.M0 + 2 * w.Node0 - 2 * k.thgr;
  return w.Xmdot + 2 * w.Xnodot - 2 * thdt + k.ssl + 2 * k.ssh;
}

void Initialise(const WorkingElementsRecord& w, DeepStateRecord& k) {
  k.thgr = ThetaG(w.Epoch, k.ds50);
  k.xnq = w.Xnodp;
  k.xqncl = w.I0;
  k.omegaq = w.Omega0;
  k.omgdot = w.Omgdot;
  k.e0 = w.E0;
  k.i0 = w.I0;
  k.sinio = w.Sinio;
  k.cosio = w.Cosio;
  const double aqnv = Div(1.0, w.Aodp);
  const double sinq = std::sin(w.Node0);
  const double cosq = std::cos(w.Node0);
  InitLunarDay(k.ds50 + 18261.5, k);
  InitSolar(w, cosq, sinq, k);
  InitLunar(w, cosq, sinq, k);
  k.forwards.clear();
  k.backwards.clear();
  k.isynfl = k.xnq > 0.0034906585 && k.xnq < 0.0052359877;
  const bool halfDay = k.xnq >= 0.00826 && k.xnq <= 0.00924 && w.E0 >= 0.5;
  k.iresfl = k.isynfl || halfDay;
  if (!k.iresfl) return;
  const double bfact = k.isynfl ? InitSynchronous(w, aqnv, k) : InitHalfDay(w, aqnv, k);
  k.xfact = bfact - k.xnq;
}

void RatesOf(const DeepStateRecord& k, Resonance& r) {
  constexpr double fasx2 = 0.13130908;
  constexpr double fasx4 = 2.8843198;
  constexpr double fasx6 = 0.37448087;
  constexpr double g22 = 5.7686396;
  constexpr double g32 = 0.95240898;
  constexpr double g44 = 1.8014998;
  constexpr double g52 = 1.050833;
  constexpr double g54 = 4.4108898;
  const double xli = r.xli;
  if (k.isynfl) {
    r.xndot = k.del1 * std::sin(xli - fasx2) + k.del2 * std::sin(2 * (xli - fasx4)) +
              k.del3 * std::sin(3 * (xli - fasx6));
    r.xnddt = k.del1 * std::cos(xli - fasx2) + 2 * k.del2 * std::cos(2 * (xli - fasx4)) +
              3 * k.del3 * std::cos(3 * (xli - fasx6));
  } else {
    const double xomi = k.omegaq + k.omgdot * r.atime;
    const double x2omi = 2 * xomi;
    const double x2li = 2 * xli;
    r.xndot = k.d2201 * std::sin(x2omi + xli - g22) + k.d2211 * std::sin(xli - g22) +
              k.d3210 * std::sin(xomi + xli - g32) + k.d3222 * std::sin(-xomi + xli - g32) +
              k.d4410 * std::sin(x2omi + x2li - g44) + k.d4422 * std::sin(x2li - g44) +
              k.d5220 * std::sin(xomi + xli - g52) + k.d5232 * std::sin(-xomi + xli - g52) +
              k.d5421 * std::sin(xomi + x2li - g54) + k.d5433 * std::sin(-xomi + x2li - g54);
    r.xnddt = k.d2201 * std::cos(x2omi + xli - g22) + k.d2211 * std::cos(xli - g22) +
              k.d3210 * std::cos(xomi + xli - g32) + k.d3222 * std::cos(-xomi + xli - g32) +
              2 * k.d4410 * std::cos(x2omi + x2li - g44) + 2 * k.d4422 * std::cos(x2li - g44) +
              k.d5220 * std::cos(xomi + xli - g52) + k.d5232 * std::cos(-xomi + xli - g52) +
              2 * k.d5421 * std::cos(xomi + x2li - g54) + 2 * k.d5433 * std::cos(-xomi + x2li - g54);
  }
  r.xldot = r.xni + k.xfact;
  r.xnddt = r.xnddt * r.xldot;
}

void Step(double delt, Resonance& r) {
  r.xli = r.xli + r.xldot * delt + r.xndot * step2;
  r.xni = r.xni + r.xndot * delt + r.xnddt * step2;
  r.atime = r.atime + delt;
}

/// The integration starts at the epoch at every call, so the report's ways of going on from a former instant
/// are never taken and do not stand here; but its steps are always the same, and are kept.
Resonance IntegrateTo(double t, DeepStateRecord& k) {
  constexpr std::size_t mostKept = 65536;
  const double delt = t >= 0 ? step : -step;
  std::vector<Resonance>& steps = t >= 0 ? k.forwards : k.backwards;
  if (steps.empty()) {
    steps.push_back({0, k.xlamo, k.xnq, 0, 0, 0});
    RatesOf(k, steps.back());
  }
  const double wanted = std::fmin(Fix(std::fabs(t) / step), static_cast<double>(mostKept - 1));
  // the first step from which less than a whole one is left
  std::size_t at = static_cast<std::size_t>(wanted);
  while (at > 0 && !(std::fabs(t - delt * static_cast<double>(at - 1)) >= step)) --at;
  while (steps.size() <= at) {
    Resonance r = steps.back();
    Step(delt, r);
    RatesOf(k, r);
    steps.push_back(r);
  }
  Resonance r = steps[at];
  while (std::fabs(t - r.atime) >= step) {
    Step(delt, r);
    RatesOf(k, r);
  }
  return r;
}

void AddSecular(WorkingElementsRecord& w, DeepStateRecord& k) {
  const double t = w.T;
  w.Xll = w.Xll + k.ssl * t;
  w.Omgasm = w.Omgasm + k.ssg * t;
  w.Xnodes = w.Xnodes + k.ssh * t;
  w.Em = k.e0 + k.sse * t;
  w.Xinc = k.i0 + k.ssi * t;
  if (w.Xinc < 0) {
    w.Xinc = -w.Xinc;
    w.Xnodes = w.Xnodes + Pi;
    w.Omgasm = w.Omgasm - Pi;
  }
  if (!k.iresfl) return;
  if (!(std::fabs(t) <= furthest)) FailOverflow(t);
  const Resonance r = IntegrateTo(t, k);
  const double ft = t - r.atime;
  w.Xn = r.xni + r.xndot * ft + r.xnddt * ft * ft * 0.5;
  const double xl = r.xli + r.xldot * ft + r.xndot * ft * ft * 0.5;
  const double temp = -w.Xnodes + k.thgr + t * thdt;
  w.Xll = k.isynfl ? xl - w.Omgasm + temp : xl + 2 * temp;
}

/// Phase of a body on its orbit, as the periodic terms take it.
struct BodyPhase {
  double sinzf = 0, f2 = 0, f3 = 0;
};

BodyPhase PhaseOf(double zm, double ze2) {
  const double zf = zm + ze2 * std::sin(zm);
  BodyPhase phase;
  phase.sinzf = std::sin(zf);
  phase.f2 = 0.5 * Square(phase.sinzf) - 0.25;
  phase.f3 = -0.5 * phase.sinzf * std::cos(zf);
  return phase;
}

void AddPeriodic(WorkingElementsRecord& w, const DeepStateRecord& k) {
  const double t = w.T;
  const double sinis = std::sin(w.Xinc);
  const double cosis = std::cos(w.Xinc);
  const BodyPhase s = PhaseOf(k.Zmos + zns * t, 0.0335);
  const BodyPhase l = PhaseOf(k.Zmol + znl * t, 0.1098);
  const double ses = k.se2 * s.f2 + k.se3 * s.f3;
  const double sis = k.si2 * s.f2 + k.si3 * s.f3;
  const double sls = k.sl2 * s.f2 + k.sl3 * s.f3 + k.sl4 * s.sinzf;
  const double sghs = k.sgh2 * s.f2 + k.sgh3 * s.f3 + k.sgh4 * s.sinzf;
  const double shs = k.sh2 * s.f2 + k.sh3 * s.f3;
  const double sel = k.ee2 * l.f2 + k.e3 * l.f3;
  const double sil = k.xi2 * l.f2 + k.xi3 * l.f3;
  const double sll = k.xl2 * l.f2 + k.xl3 * l.f3 + k.xl4 * l.sinzf;
  const double sghl = k.xgh2 * l.f2 + k.xgh3 * l.f3 + k.xgh4 * l.sinzf;
  const double shl = k.xh2 * l.f2 + k.xh3 * l.f3;
  const double pe = ses + sel;
  const double pinc = sis + sil;
  const double pl = sls + sll;
  double pgh = sghs + sghl;
  double ph = shs + shl;
  w.Xinc = w.Xinc + pinc;
  w.Em = w.Em + pe;
  if (k.xqncl >= 0.2) {
    ph = Div(ph, k.sinio);
    pgh = pgh - k.cosio * ph;
    w.Omgasm = w.Omgasm + pgh;
    w.Xnodes = w.Xnodes + ph;
    w.Xll = w.Xll + pl;
    return;
  }
  const double sinok = std::sin(w.Xnodes);
  const double cosok = std::cos(w.Xnodes);
  const double alfdp = sinis * sinok + ph * cosok + pinc * cosis * sinok;
  const double betdp = sinis * cosok - ph * sinok + pinc * cosis * cosok;
  const double xls = w.Xll + w.Omgasm + cosis * w.Xnodes + pl + pgh - pinc * w.Xnodes * sinis;
  w.Xnodes = ArcTan2Positive(alfdp, betdp);
  w.Xll = w.Xll + pl;
  w.Omgasm = xls - w.Xll - std::cos(w.Xinc) * w.Xnodes;
}

}  // namespace

double ThetaG(double julianDay, double& ds50) {
  ds50 = julianDay - 2433281.5;
  return Fmod2Pi(ds50 * 6.3003880987 + 1.72944494);
}

void DeepSpacePerturbations(int entry, WorkingElementsRecord& elements, DeepStateRecord& state) {
  if (entry == 1) Initialise(elements, state);
  if (entry == 2) AddSecular(elements, state);
  if (entry == 3) AddPeriodic(elements, state);
}

}  // namespace halvorine
