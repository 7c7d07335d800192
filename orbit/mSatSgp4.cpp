#include <cmath>

#include "orbit/mSatModels.h"

namespace halvorine {

namespace {

/// Recovers the original mean motion and semimajor axis from the element set's.
void RecoverMotion(SecularTerms& terms) {
  const double a1 = Pow(Div(xke, terms.N0), tothrd);
  const double del1 = Div(1.5 * ck2 * terms.x3thm1, Square(a1) * terms.betao * terms.betao2);
  const double ao = a1 * (1 - del1 * (0.3333333333333333 + del1 * (1 + tothrdTerm * del1)));
  const double delo = Div(1.5 * ck2 * terms.x3thm1, Square(ao) * terms.betao * terms.betao2);
  terms.xnodp = Div(terms.N0, 1 + delo);
  terms.aodp = Div(ao, 1 - delo);
}

/// Drag: the atmosphere parameters for the perigee at hand, then c1 and c4.
void InitDrag(SecularTerms& terms) {
  const double aodp = terms.aodp;
  double qoms24 = qoms2t;
  terms.s4 = sAtmosphere;
  const double perige = ((1 - terms.E0) * aodp - 1) * xkmper;
  if (perige < 156) {
    terms.s4 = perige - 78;
    if (perige <= 98) terms.s4 = 20;
    qoms24 = Square(Square((120 - terms.s4) / xkmper));
    terms.s4 = terms.s4 / xkmper + 1;
  }
  const double tsi = Div(1.0, aodp - terms.s4);
  const double eta = aodp * terms.E0 * tsi;
  const double etasq = Square(eta);
  const double eeta = terms.E0 * eta;
  const double psisq = std::fabs(1 - etasq);
  terms.tsi = tsi;
  terms.eta = eta;
  terms.etasq = etasq;
  terms.eeta = eeta;
  terms.coef = qoms24 * Square(Square(tsi));
  terms.coef1 = Div(terms.coef, Pow(psisq, 3.5));
  const double x3thm1 = terms.x3thm1;
  const double c2 = terms.coef1 * terms.xnodp *
                    (aodp * (1 + 1.5 * etasq + eeta * (4 + etasq)) +
                     Div(0.75 * ck2 * tsi, psisq) * x3thm1 * (8 + 3 * etasq * (8 + etasq)));
  terms.c1 = terms.Bstar * c2;
  terms.c4 = 2 * terms.xnodp * terms.coef1 * aodp * terms.betao2 *
             (eta * (2 + 0.5 * etasq) + terms.E0 * (0.5 + 2 * etasq) -
              Div(2 * ck2 * tsi, aodp * psisq) *
                  (-3 * x3thm1 * (1 - 2 * eeta + etasq * (1.5 - 0.5 * eeta)) +
                   0.75 * terms.x1mth2 * (2 * etasq - eeta * (1 + etasq)) * std::cos(2 * terms.Omega0)));
}

/// Secular rates by the Earth's oblateness, and the coefficients that rest on them.
void InitRates(SecularTerms& terms) {
  const double theta2 = terms.theta2;
  const double theta4 = Square(theta2);
  const double pinvsq = Div(1.0, Square(terms.aodp) * Square(terms.betao2));
  const double temp1 = 3 * ck2 * pinvsq * terms.xnodp;
  const double temp2 = temp1 * ck2 * pinvsq;
  const double temp3 = ck4x125 * Square(pinvsq) * terms.xnodp;
  terms.xmdot = terms.xnodp + 0.5 * temp1 * terms.betao * terms.x3thm1 +
                0.0625 * temp2 * terms.betao * (13 - 78 * theta2 + 137 * theta4);
  const double x1m5th = 1 - 5 * theta2;
  terms.omgdot = -0.5 * temp1 * x1m5th + 0.0625 * temp2 * (7 - 114 * theta2 + 395 * theta4) +
                 temp3 * (3 - 36 * theta2 + 49 * theta4);
  terms.xhdot1 = -temp1 * terms.cosio;
  terms.xnodot =
      terms.xhdot1 + (0.5 * temp2 * (4 - 19 * theta2) + 2 * temp3 * (3 - 7 * theta2)) * terms.cosio;
  terms.xnodcf = 3.5 * terms.betao2 * terms.xhdot1 * terms.c1;
  terms.t2cof = 1.5 * terms.c1;
  terms.xlcof = Div(0.125 * a3ovk2 * terms.sinio * (3 + 5 * terms.cosio), 1 + terms.cosio);
  terms.aycof = 0.25 * a3ovk2 * terms.sinio;
  terms.x7thm1 = 7 * theta2 - 1;
}

/// Higher drag terms, which a perigee below 220 km leaves out.
void InitHigherDrag(Sgp4Terms& terms) {
  const SecularTerms& s = terms.secular;
  const double c1 = s.c1;
  const double c1sq = Square(c1);
  terms.d2 = 4 * s.aodp * s.tsi * c1sq;
  const double temp = terms.d2 * s.tsi * c1 / 3;
  terms.d3 = (17 * s.aodp + s.s4) * temp;
  terms.d4 = 0.5 * temp * s.aodp * s.tsi * (221 * s.aodp + 31 * s.s4) * c1;
  terms.t3cof = terms.d2 + 2 * c1sq;
  terms.t4cof = 0.25 * (3 * terms.d3 + c1 * (12 * terms.d2 + 10 * c1sq));
  terms.t5cof =
      0.2 * (3 * terms.d4 + 12 * c1 * terms.d3 + 6 * Square(terms.d2) + 15 * c1sq * (2 * terms.d2 + c1sq));
}

/// The last round's values of Kepler's equation in its equinoctial form.
struct KeplerRound {
  double sinepw = 0, cosepw = 0, temp3 = 0, temp4 = 0, temp5 = 0, temp6 = 0;
};

/// At most ten rounds; without convergence the last ones stand. The sine and cosine are those of the angle
/// before the last correction, on purpose.
KeplerRound SolveKepler(double capu, double axn, double ayn) {
  KeplerRound k;
  double temp2 = capu;
  for (int round = 1; round <= 10; ++round) {
    k.sinepw = std::sin(temp2);
    k.cosepw = std::cos(temp2);
    k.temp3 = axn * k.sinepw;
    k.temp4 = ayn * k.cosepw;
    k.temp5 = axn * k.cosepw;
    k.temp6 = ayn * k.sinepw;
    const double epw = Div(capu - k.temp4 + k.temp3 - temp2, 1 - k.temp5 - k.temp6) + temp2;
    if (std::fabs(epw - temp2) <= e6a) break;
    temp2 = epw;
  }
  return k;
}

}  // namespace

void InitSecular(const WorkingElementsRecord& elements, SecularTerms& terms) {
  terms.M0 = elements.M0;
  terms.Node0 = elements.Node0;
  terms.Omega0 = elements.Omega0;
  terms.E0 = elements.E0;
  terms.I0 = elements.I0;
  terms.N0 = elements.N0;
  terms.Bstar = elements.Bstar;
  terms.cosio = std::cos(terms.I0);
  terms.sinio = std::sin(terms.I0);
  terms.theta2 = Square(terms.cosio);
  terms.x3thm1 = 3 * terms.theta2 - 1;
  terms.x1mth2 = 1 - terms.theta2;
  terms.eosq = Square(terms.E0);
  terms.betao2 = 1 - terms.eosq;
  terms.betao = Sqrt(terms.betao2);
  RecoverMotion(terms);
  InitDrag(terms);
  InitRates(terms);
}

void InitSgp4(const WorkingElementsRecord& elements, Sgp4Terms& terms) {
  SecularTerms& s = terms.secular;
  InitSecular(elements, s);
  terms.isimp = (1 - s.E0) * s.aodp < 1 + 220 / xkmper;
  // c3 = coef*tsi*a3ovk2*Xnodp*sinio/E0: a circular orbit fails here, also where c3 is not used
  const double c3 = Div(s.coef * s.tsi * a3ovk2 * s.xnodp * s.sinio, s.E0);
  terms.c5 = 2 * s.coef1 * s.aodp * s.betao2 * (1 + 2.75 * (s.etasq + s.eeta) + s.eeta * s.etasq);
  terms.omgcof = s.Bstar * c3 * std::cos(s.Omega0);
  terms.xmcof = Div(-tothrd * s.coef * s.Bstar, s.eeta);
  terms.delmo = Cube(1 + s.eta * std::cos(s.M0));
  terms.sinmo = std::sin(s.M0);
  if (!terms.isimp) InitHigherDrag(terms);
}

MeanPlace PlaceSgp4(const Sgp4Terms& terms, double tsince) {
  const SecularTerms& s = terms.secular;
  const double t = tsince;
  const double xmdf = s.M0 + s.xmdot * t;
  const double omgadf = s.Omega0 + s.omgdot * t;
  const double xnoddf = s.Node0 + s.xnodot * t;
  double omega = omgadf;
  double xmp = xmdf;
  const double tsq = Finite(Square(t));
  const double xnode = xnoddf + s.xnodcf * tsq;
  double tempa = 1 - s.c1 * t;
  double tempe = s.Bstar * s.c4 * t;
  double templ = s.t2cof * tsq;
  if (!terms.isimp) {
    const double delomg = terms.omgcof * t;
    const double delm = terms.xmcof * (Cube(1 + s.eta * std::cos(xmdf)) - terms.delmo);
    const double temp = delomg + delm;
    xmp = xmdf + temp;
    omega = omgadf - temp;
    const double tcube = tsq * t;
    const double tfour = Finite(t * tcube);
    tempa = tempa - terms.d2 * tsq - terms.d3 * tcube - terms.d4 * tfour;
    tempe = tempe + s.Bstar * terms.c5 * (std::sin(xmp) - terms.sinmo);
    templ = templ + terms.t3cof * tcube + tfour * (terms.t4cof + t * terms.t5cof);
  }
  MeanPlace place;
  place.a = s.aodp * Square(tempa);
  place.e = s.E0 - tempe;
  place.omega = omega;
  place.xnode = xnode;
  place.xl = xmp + omega + xnode + s.xnodp * templ;
  place.xinc = s.I0;
  return place;
}

SolvedPlace SolvePlace(const SecularTerms& terms, const MeanPlace& place) {
  const double a = place.a;
  const double e = place.e;
  const double beta = Sqrt(1 - Square(e));
  const double axn = e * std::cos(place.omega);
  const double tempLong = Div(1.0, a * Square(beta));
  const double xll = tempLong * terms.xlcof * axn;
  const double aynl = tempLong * terms.aycof;
  const double xlt = place.xl + xll;
  const double ayn = e * std::sin(place.omega) + aynl;

  const double capu = Fmod2Pi(xlt - place.xnode);
  const KeplerRound k = SolveKepler(capu, axn, ayn);

  SolvedPlace solved;
  solved.a = a;
  const double ecose = k.temp5 + k.temp6;
  solved.esine = k.temp3 - k.temp4;
  const double elsq = Square(axn) + Square(ayn);
  const double beta2 = 1 - elsq;
  solved.pl = a * beta2;
  const double r = a * (1 - ecose);
  solved.rInverse = Div(1.0, r);
  const double aOverR = a * solved.rInverse;
  const double betal = Sqrt(beta2);
  const double temp3 = Div(1.0, 1 + betal);
  const double cosu = aOverR * (k.cosepw - axn + ayn * solved.esine * temp3);
  const double sinu = aOverR * (k.sinepw - ayn - axn * solved.esine * temp3);
  const double u = ArcTan2Positive(sinu, cosu);
  solved.sin2u = 2 * sinu * cosu;
  solved.cos2u = 2 * Square(cosu) - 1;

  const double temp = Div(1.0, solved.pl);
  solved.temp1 = ck2 * temp;
  const double temp2 = solved.temp1 * temp;
  const double cosio = terms.cosio;
  solved.rk = r * (1 - 1.5 * temp2 * betal * terms.x3thm1) + 0.5 * solved.temp1 * terms.x1mth2 * solved.cos2u;
  solved.uk = u - 0.25 * temp2 * terms.x7thm1 * solved.sin2u;
  solved.xnodek = place.xnode + 1.5 * temp2 * cosio * solved.sin2u;
  solved.xinck = place.xinc + 1.5 * temp2 * cosio * terms.sinio * solved.cos2u;
  return solved;
}

void FinishPlace(const SecularTerms& terms, const MeanPlace& place, OrbitVectors& out) {
  const SolvedPlace k = SolvePlace(terms, place);
  const double xn = Div(xke, Pow(k.a, 1.5));
  const double rdot = xke * Sqrt(k.a) * k.esine * k.rInverse;
  const double rfdot = xke * Sqrt(k.pl) * k.rInverse;
  const double rdotk = rdot - xn * k.temp1 * terms.x1mth2 * k.sin2u;
  const double rfdotk = rfdot + xn * k.temp1 * (terms.x1mth2 * k.cos2u + 1.5 * terms.x3thm1);
  OrientOrbit(k.rk, rdotk, rfdotk, k.uk, k.xnodek, k.xinck, out);
}

std::array<double, 3> PositionAlone(const SecularTerms& terms, const MeanPlace& place) {
  const SolvedPlace k = SolvePlace(terms, place);
  // far from any of these the velocity that is left out would not have failed either
  if (!(k.a > 1e-3 && k.a < 1e6 && k.pl > 1e-6)) throw ArithmeticFailure("orbit beyond all bounds");
  const double sinuk = std::sin(k.uk);
  const double cosuk = std::cos(k.uk);
  const double sinik = std::sin(k.xinck);
  const double cosik = std::cos(k.xinck);
  const double sinnok = std::sin(k.xnodek);
  const double cosnok = std::cos(k.xnodek);
  const double xmx = -sinnok * cosik;
  const double xmy = cosnok * cosik;
  const double ux = xmx * sinuk + cosnok * cosuk;
  const double uy = xmy * sinuk + sinnok * cosuk;
  const double uz = sinik * sinuk;
  return {Finite(k.rk * ux * xkmper), Finite(k.rk * uy * xkmper), Finite(k.rk * uz * xkmper)};
}

void RunSgp4(const Sgp4Terms& terms, double tsince, OrbitVectors& out) {
  FinishPlace(terms.secular, PlaceSgp4(terms, tsince), out);
}

void OrientOrbit(double rk, double rdotk, double rfdotk, double uk, double xnodek, double xinck,
                 OrbitVectors& out) {
  const double sinuk = std::sin(uk);
  const double cosuk = std::cos(uk);
  const double sinik = std::sin(xinck);
  const double cosik = std::cos(xinck);
  const double sinnok = std::sin(xnodek);
  const double cosnok = std::cos(xnodek);
  const double xmx = -sinnok * cosik;
  const double xmy = cosnok * cosik;
  const std::array<double, 3> u{xmx * sinuk + cosnok * cosuk, xmy * sinuk + sinnok * cosuk, sinik * sinuk};
  const std::array<double, 3> v{xmx * cosuk - cosnok * sinuk, xmy * cosuk - sinnok * sinuk, sinik * cosuk};
  for (std::size_t i = 0; i < 3; ++i) {
    out.position[i] = Finite(rk * u[i] * xkmper);
    out.velocity[i] = Finite((rdotk * u[i] + rfdotk * v[i]) * xkmper * 1440 / 86400);
  }
}

void TakeOver(const OrbitVectors& vectors) {
  PositionKm = vectors.position;
  VelocityKmS = vectors.velocity;
}

void PropagateSGP4(double tsince) {
  Sgp4Terms terms;
  OrbitVectors vectors;
  InitSgp4(WorkingElements, terms);
  RunSgp4(terms, tsince, vectors);
  WorkingElements.Aodp = terms.secular.aodp;
  WorkingElements.Xnodp = terms.secular.xnodp;
  TakeOver(vectors);
}

}  // namespace halvorine
