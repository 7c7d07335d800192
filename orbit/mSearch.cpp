#include "orbit/mSearch.h"

#include <cmath>

#include "astro/mMate.h"
#include "orbit/mSat.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr int mostRounds = 50;
constexpr double goldenPart = 0.38196601125;

void TellNoConvergence() {
  Tell(MessageKind::Warning, "Errore nella routine di previsione passaggi!");  // a literal in every language
}

/// The minimiser's places: x the best, w the second, v the one before, u the last tried.
struct Minimum {
  double a = 0, b = 0;
  double x = 0, w = 0, v = 0, d = 0, e = 0;
  double fx = 0, fw = 0, fv = 0;
};

/// The next place to try. Divisions by zero cannot occur: an accepted parabola has |p| below |q*etemp/2|.
double NextTry(Minimum& m, double xm, double tol1, double tol2) {
  bool golden = true;
  if (std::fabs(m.e) > tol1) {
    const double r = (m.x - m.w) * (m.fx - m.fv);
    double q = (m.x - m.v) * (m.fx - m.fw);
    double p = (m.x - m.v) * q - (m.x - m.w) * r;
    q = 2 * (q - r);
    if (q > 0) p = -p;
    q = std::fabs(q);
    const double etemp = m.e;
    m.e = m.d;
    if (std::fabs(p) < std::fabs(0.5 * q * etemp) && p > q * (m.a - m.x) && p < q * (m.b - m.x)) {
      m.d = Div(p, q);
      const double u = m.x + m.d;
      if (u - m.a < tol2 || m.b - u < tol2) m.d = Sgn(xm - m.x) * tol1;
      golden = false;
    }
  }
  if (golden) {
    m.e = m.x < xm ? m.b - m.x : m.a - m.x;
    m.d = goldenPart * m.e;
  }
  return std::fabs(m.d) < tol1 ? m.x + Sgn(m.d) * tol1 : m.x + m.d;
}

void TakeTry(Minimum& m, double u, double fu) {
  if (fu <= m.fx) {
    (u >= m.x ? m.a : m.b) = m.x;
    m.v = m.w;
    m.fv = m.fw;
    m.w = m.x;
    m.fw = m.fx;
    m.x = u;
    m.fx = fu;
    return;
  }
  (u < m.x ? m.a : m.b) = u;
  if (fu <= m.fw || m.w == m.x) {
    m.v = m.w;
    m.fv = m.fw;
    m.w = u;
    m.fw = fu;
  } else if (fu <= m.fv || m.v == m.x || m.v == m.w) {
    m.v = u;
    m.fv = fu;
  }
}

/// The root finder's places: b the best, a the one before, c on the other side of the root.
struct Root {
  double a = 0, b = 0, c = 0, d = 0, e = 0;
  double fa = 0, fb = 0, fc = 0;
};

/// The next step from b, by interpolation where that stays inside, else by halving.
void ChooseStep(Root& r, double xm, double tol1) {
  if (!(std::fabs(r.e) >= tol1 && std::fabs(r.fa) > std::fabs(r.fb))) {
    r.d = xm;
    r.e = r.d;
    return;
  }
  const double s = Div(r.fb, r.fa);
  double p = 2 * xm * s;
  double q = 1 - s;
  if (r.a != r.c) {
    q = Div(r.fa, r.fc);
    const double t = Div(r.fb, r.fc);
    p = s * (2 * xm * q * (q - t) - (r.b - r.a) * (t - 1));
    q = (q - 1) * (t - 1) * (s - 1);
  }
  if (p > 0) q = -q;
  p = std::fabs(p);
  const double min1 = 3 * xm * q - std::fabs(tol1 * q);
  const double min2 = std::fabs(r.e * q);
  if (2 * p < (min1 < min2 ? min1 : min2)) {
    r.e = r.d;
    r.d = Div(p, q);
  } else {
    r.d = xm;
    r.e = r.d;
  }
}

}  // namespace

double StateObjective::At(double julianDay) {
  ComputeSatelliteState(PassSlot, julianDay);
  return PassThreshold - SatelliteStates[PassSlot].Elevation;
}

void MinimizeBracketed(Objective& f, double lower, double upper, double& bestTime, double& bestValue) {
  Minimum m;
  m.a = lower;
  m.b = upper;
  m.x = m.w = m.v = m.a + goldenPart * (m.b - m.a);
  m.fx = m.fw = m.fv = f.At(m.x);
  for (int round = 1; round <= mostRounds; ++round) {
    const double xm = 0.5 * (m.a + m.b);
    const double tol1 = std::fabs(m.x) * 1e-14 + 2.23e-16;
    const double tol2 = 2 * tol1;
    if (std::fabs(m.x - xm) <= tol2 - 0.5 * (m.b - m.a)) {
      bestTime = m.x;
      bestValue = m.fx;
      return;
    }
    const double u = NextTry(m, xm, tol1, tol2);
    TakeTry(m, u, f.At(u));
  }
  TellNoConvergence();
}

void FindRootBracketed(Objective& f, double lower, double upper, double& result) {
  const double fLower = f.At(lower);
  FindRootBracketed(f, lower, fLower, upper, f.At(upper), result);
}

void FindRootBracketed(Objective& f, double lower, double fLower, double upper, double fUpper,
                       double& result) {
  Root r;
  r.a = lower;
  r.b = upper;
  r.fa = fLower;
  r.fb = fUpper;
  r.c = r.b;
  r.fc = r.fb;
  for (int round = 1; round <= mostRounds; ++round) {
    if (r.fb * r.fc > 0) {
      r.c = r.a;
      r.fc = r.fa;
      r.d = r.b - r.a;
      r.e = r.d;
    }
    if (std::fabs(r.fc) < std::fabs(r.fb)) {
      r.a = r.b;
      r.b = r.c;
      r.c = r.a;
      r.fa = r.fb;
      r.fb = r.fc;
      r.fc = r.fa;
    }
    const double tol1 = std::fabs(r.b) * 4.46e-16 + 5e-11;
    const double xm = (r.c - r.b) * 0.5;
    if (std::fabs(xm) <= tol1 || r.fb == 0) {
      result = r.b;
      return;
    }
    ChooseStep(r, xm, tol1);
    r.a = r.b;
    r.fa = r.fb;
    r.b = std::fabs(r.d) > tol1 ? r.b + r.d : r.b + Sgn(xm) * tol1;
    r.fb = f.At(r.b);
  }
  TellNoConvergence();
}

bool ExtendBracket(Objective& f, double start, double& end) {
  double fEnd = 0;
  return ExtendBracket(f, start, f.At(start), end, fEnd);
}

bool ExtendBracket(Objective& f, double start, double fStart, double& end, double& fEnd) {
  constexpr int mostExtensions = 10000;
  constexpr double widest = 1000;  // days
  for (int round = 0; round < mostExtensions; ++round) {
    if (end == start || !(std::fabs(end - start) <= widest)) return false;
    end = end + (end - start) * 0.25;
    fEnd = f.At(end);
    if (!std::isfinite(fStart) || !std::isfinite(fEnd)) return false;
    if (fStart * fEnd < 0) return true;
  }
  return false;
}

void MinimizeBracketed(double lower, double upper, double& bestTime, double& bestValue) {
  StateObjective f;
  MinimizeBracketed(f, lower, upper, bestTime, bestValue);
}

void FindRootBracketed(double lower, double upper, double& result) {
  StateObjective f;
  FindRootBracketed(f, lower, upper, result);
}

bool ExtendBracket(double start, double& end) {
  StateObjective f;
  return ExtendBracket(f, start, end);
}

}  // namespace halvorine
