"""The near-earth orbit model of Spacetrack Report No. 3, as the program uses it by default for every orbit.

Written for the check of the sample elements only: plain, one call per instant, all of the initialisation each time.
"""

import math

XKE = 0.0743669161
RADIUS_KM = 6378.135
CK2 = 0.000541308
CK4_TIMES_5_4 = 7.762359375e-7
A3OVK2 = 2.53881e-6 / CK2
GRAVITY = (XKE / 60.0) ** 2 * RADIUS_KM**3


def elements_of(line1, line2):
    """Gives the elements in radians and minutes that propagate() takes."""
    def exponential(text):
        return float(text[0] + "." + text[1:6].strip()) * 10.0 ** int(text[6:8])

    return {
        "bstar": exponential(line1[53:61]),
        "inclination": math.radians(float(line2[8:16])),
        "node": math.radians(float(line2[17:25])),
        "eccentricity": float("0." + line2[26:33]),
        "perigee": math.radians(float(line2[34:42])),
        "anomaly": math.radians(float(line2[43:51])),
        "motion": float(line2[52:63]) * 2.0 * math.pi / 1440.0,
    }


def propagate(el, t):
    """Position in km and velocity in km/s at t minutes after the epoch; raises ArithmeticError or ValueError."""
    e0, i0, w0, m0, bstar = el["eccentricity"], el["inclination"], el["perigee"], el["anomaly"], el["bstar"]
    a1 = (XKE / el["motion"]) ** (2.0 / 3.0)
    cosio, sinio = math.cos(i0), math.sin(i0)
    theta2 = cosio * cosio
    x3thm1 = 3.0 * theta2 - 1.0
    betao2 = 1.0 - e0 * e0
    betao = math.sqrt(betao2)
    del1 = 1.5 * CK2 * x3thm1 / (a1 * a1 * betao * betao2)
    ao = a1 * (1.0 - del1 * (1.0 / 3.0 + del1 * (1.0 + 134.0 / 81.0 * del1)))
    delo = 1.5 * CK2 * x3thm1 / (ao * ao * betao * betao2)
    n, a0 = el["motion"] / (1.0 + delo), ao / (1.0 - delo)

    simple = (1.0 - e0) * a0 < 1.0 + 220.0 / RADIUS_KM
    s4, qoms24 = 1.01222928, 1.88027916e-9
    height = ((1.0 - e0) * a0 - 1.0) * RADIUS_KM
    if height < 156.0:
        s4 = 20.0 if height <= 98.0 else height - 78.0
        qoms24 = ((120.0 - s4) / RADIUS_KM) ** 4
        s4 = s4 / RADIUS_KM + 1.0
    pinvsq = 1.0 / (a0 * a0 * betao2 * betao2)
    tsi = 1.0 / (a0 - s4)
    eta = a0 * e0 * tsi
    etasq, eeta = eta * eta, e0 * eta
    psisq = abs(1.0 - etasq)
    coef = qoms24 * tsi**4
    coef1 = coef / psisq**3.5
    c2 = coef1 * n * (a0 * (1.0 + 1.5 * etasq + eeta * (4.0 + etasq))
                      + 0.75 * CK2 * tsi / psisq * x3thm1 * (8.0 + 3.0 * etasq * (8.0 + etasq)))
    c1 = bstar * c2
    c3 = coef * tsi * A3OVK2 * n * sinio / e0
    x1mth2 = 1.0 - theta2
    c4 = 2.0 * n * coef1 * a0 * betao2 * (
        eta * (2.0 + 0.5 * etasq) + e0 * (0.5 + 2.0 * etasq)
        - 2.0 * CK2 * tsi / (a0 * psisq) * (-3.0 * x3thm1 * (1.0 - 2.0 * eeta + etasq * (1.5 - 0.5 * eeta))
                                            + 0.75 * x1mth2 * (2.0 * etasq - eeta * (1.0 + etasq)) * math.cos(2.0 * w0)))
    c5 = 2.0 * coef1 * a0 * betao2 * (1.0 + 2.75 * (etasq + eeta) + eeta * etasq)
    theta4 = theta2 * theta2
    temp1 = 3.0 * CK2 * pinvsq * n
    temp2 = temp1 * CK2 * pinvsq
    temp3 = CK4_TIMES_5_4 * pinvsq * pinvsq * n
    xmdot = n + 0.5 * temp1 * betao * x3thm1 + 0.0625 * temp2 * betao * (13.0 - 78.0 * theta2 + 137.0 * theta4)
    omgdot = (-0.5 * temp1 * (1.0 - 5.0 * theta2) + 0.0625 * temp2 * (7.0 - 114.0 * theta2 + 395.0 * theta4)
              + temp3 * (3.0 - 36.0 * theta2 + 49.0 * theta4))
    xhdot1 = -temp1 * cosio
    xnodot = xhdot1 + (0.5 * temp2 * (4.0 - 19.0 * theta2) + 2.0 * temp3 * (3.0 - 7.0 * theta2)) * cosio
    xmcof = -(2.0 / 3.0) * coef * bstar / eeta
    xlcof = 0.125 * A3OVK2 * sinio * (3.0 + 5.0 * cosio) / (1.0 + cosio)
    aycof = 0.25 * A3OVK2 * sinio
    delmo = (1.0 + eta * math.cos(m0)) ** 3

    xmdf, omega = m0 + xmdot * t, w0 + omgdot * t
    node = el["node"] + xnodot * t + 3.5 * betao2 * xhdot1 * c1 * t * t
    xmp = xmdf
    tempa, tempe, templ = 1.0 - c1 * t, bstar * c4 * t, 1.5 * c1 * t * t
    if not simple:
        c1sq = c1 * c1
        d2 = 4.0 * a0 * tsi * c1sq
        temp = d2 * tsi * c1 / 3.0
        d3 = (17.0 * a0 + s4) * temp
        d4 = 0.5 * temp * a0 * tsi * (221.0 * a0 + 31.0 * s4) * c1
        temp = bstar * c3 * math.cos(w0) * t + xmcof * ((1.0 + eta * math.cos(xmdf)) ** 3 - delmo)
        xmp, omega = xmdf + temp, omega - temp
        tempa -= d2 * t**2 + d3 * t**3 + d4 * t**4
        tempe += bstar * c5 * (math.sin(xmp) - math.sin(m0))
        templ += ((d2 + 2.0 * c1sq) * t**3 + 0.25 * (3.0 * d3 + c1 * (12.0 * d2 + 10.0 * c1sq)) * t**4
                  + 0.2 * (3.0 * d4 + 12.0 * c1 * d3 + 6.0 * d2 * d2 + 15.0 * c1sq * (2.0 * d2 + c1sq)) * t**5)
    a, e = a0 * tempa * tempa, e0 - tempe
    return osculate(a, e, xmp + omega + node + n * templ, omega, node, i0, (cosio, sinio, xlcof, aycof))


def osculate(a, e, longitude, omega, node, i0, terms):
    """Long-period terms, Kepler's equation and short-period terms."""
    cosio, sinio, xlcof, aycof = terms
    theta2 = cosio * cosio
    x3thm1, x1mth2, x7thm1 = 3.0 * theta2 - 1.0, 1.0 - theta2, 7.0 * theta2 - 1.0
    beta2 = 1.0 - e * e
    math.sqrt(beta2)
    axn = e * math.cos(omega)
    ayn = e * math.sin(omega) + aycof / (a * beta2)
    capu = math.fmod(longitude + xlcof * axn / (a * beta2) - node, 2.0 * math.pi)
    epw = capu
    for _ in range(10):
        sine, cosine = math.sin(epw), math.cos(epw)
        step = (capu - ayn * cosine + axn * sine - epw) / (1.0 - axn * cosine - ayn * sine)
        epw += step
        if abs(step) <= 1e-6:
            break
    ecose, esine = axn * cosine + ayn * sine, axn * sine - ayn * cosine
    rest = 1.0 - axn * axn - ayn * ayn
    pl, r = a * rest, a * (1.0 - ecose)
    rdot, rfdot = XKE * math.sqrt(a) * esine / r, XKE * math.sqrt(pl) / r
    part = 1.0 / (1.0 + math.sqrt(rest))
    cosu = a / r * (cosine - axn + ayn * esine * part)
    sinu = a / r * (sine - ayn - axn * esine * part)
    u, sin2u, cos2u = math.atan2(sinu, cosu), 2.0 * sinu * cosu, 2.0 * cosu * cosu - 1.0
    temp1 = CK2 / pl
    temp2 = temp1 / pl
    xn = XKE / a**1.5
    rk = r * (1.0 - 1.5 * temp2 * math.sqrt(rest) * x3thm1) + 0.5 * temp1 * x1mth2 * cos2u
    uk = u - 0.25 * temp2 * x7thm1 * sin2u
    node += 1.5 * temp2 * cosio * sin2u
    inclination = i0 + 1.5 * temp2 * cosio * sinio * cos2u
    rdot -= xn * temp1 * x1mth2 * sin2u
    rfdot += xn * temp1 * (x1mth2 * cos2u + 1.5 * x3thm1)
    su, cu, si, ci = math.sin(uk), math.cos(uk), math.sin(inclination), math.cos(inclination)
    sn, cn = math.sin(node), math.cos(node)
    along = (-sn * ci * su + cn * cu, cn * ci * su + sn * cu, si * su)
    across = (-sn * ci * cu - cn * su, cn * ci * cu - sn * su, si * cu)
    position = [rk * RADIUS_KM * x for x in along]
    velocity = [(rdot * x + rfdot * y) * RADIUS_KM / 60.0 for x, y in zip(along, across)]
    return position, velocity


def perigee_height(position, velocity):
    """Height in km of the perigee of the osculating orbit above the equatorial radius."""
    r = math.sqrt(sum(x * x for x in position))
    v2 = sum(x * x for x in velocity)
    rv = sum(x * y for x, y in zip(position, velocity))
    parameter = (r * r * v2 - rv * rv) / GRAVITY
    eccentricity = math.sqrt(sum(((v2 - GRAVITY / r) * x - rv * y) ** 2 for x, y in zip(position, velocity))) / GRAVITY
    return parameter / (1.0 + eccentricity) - RADIUS_KM
