#include "tests/reference/engine/critical_point.h"

#include "reference/engine/eos/gas_constant.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

using Vector = std::vector<double>;
using Matrix = std::vector<Vector>;

// The vector of the least eigenvalue of a symmetric matrix, by Jacobi's rotations.
Vector vectorOfLeast(Matrix matrix)
{
    const std::size_t n = matrix.size();
    Matrix vectors(n, Vector(n)); // in columns
    for (std::size_t i = 0; i < n; ++i)
        vectors[i][i] = 1.0;
    for (int sweep = 0; sweep < 12; ++sweep)
        for (std::size_t p = 0; p < n; ++p)
            for (std::size_t q = p + 1; q < n; ++q) {
                if (matrix[p][q] == 0.0)
                    continue;
                const double angle = 0.5 * std::atan2(2.0 * matrix[p][q], matrix[q][q] - matrix[p][p]);
                const double c = std::cos(angle);
                const double s = std::sin(angle);
                const auto rotate = [&](double &one, double &other) {
                    const double before = one;
                    one = c * before - s * other;
                    other = s * before + c * other;
                };
                for (std::size_t k = 0; k < n; ++k)
                    rotate(matrix[k][p], matrix[k][q]);
                for (std::size_t k = 0; k < n; ++k)
                    rotate(matrix[p][k], matrix[q][k]);
                for (std::size_t k = 0; k < n; ++k)
                    rotate(vectors[k][p], vectors[k][q]);
            }
    std::size_t least = 0;
    for (std::size_t i = 1; i < n; ++i)
        if (matrix[i][i] < matrix[least][least])
            least = i;
    Vector result(n);
    for (std::size_t i = 0; i < n; ++i)
        result[i] = vectors[i][least];
    return result;
}

// The residual Helmholtz energy over R T of n moles in a volume V, F = -n ln(1 - B/V) - D f / T with
// f = ln((V + d1 B) / (V + d2 B)) / (R B (d1 - d2)), B = sum n_i b_i, D = sum n_i n_j a_ij.
class HelmholtzEnergy {
public:
    HelmholtzEnergy(const MixtureModel &of, double kelvin)
        : model(of), T(kelvin), size(model.size), a(size, Vector(size))
    {
        const bool isPengRobinson = model.equation == EquationOfState::pengRobinson;
        d1 = isPengRobinson ? 1.0 + std::sqrt(2.0) : 1.0;
        d2 = isPengRobinson ? 1.0 - std::sqrt(2.0) : 0.0;
        const auto root = [&](std::size_t i) {
            const CompoundTerms &compound = model.compounds[i];
            return compound.attractionRoot *
                   (1.0 + compound.attractionSlope * (1.0 - std::sqrt(T / compound.criticalTemperature)));
        };
        for (std::size_t i = 0; i < size; ++i)
            for (std::size_t j = 0; j < size; ++j)
                a[i][j] = root(i) * root(j) * model.pairFactor[i + size * j];
    }

    double covolume(const Vector &n) const
    {
        double B = 0.0;
        for (std::size_t i = 0; i < size; ++i)
            B += n[i] * model.compounds[i].covolume;
        return B;
    }

    double pressure(const Vector &n, double V) const
    {
        double moles = 0.0;
        double D = 0.0;
        for (std::size_t i = 0; i < size; ++i) {
            moles += n[i];
            D += n[i] * attraction(n, i);
        }
        const double B = covolume(n);
        return moles * gasConstant * T / (V - B) - D / ((V + d1 * B) * (V + d2 * B));
    }

    // d2F / dn_i dn_j at constant T and V.
    Matrix curvature(const Vector &n, double V) const
    {
        double moles = 0.0;
        double D = 0.0;
        Vector byMoles(size); // of D
        for (std::size_t i = 0; i < size; ++i) {
            moles += n[i];
            byMoles[i] = 2.0 * attraction(n, i);
            D += 0.5 * n[i] * byMoles[i];
        }
        const double B = covolume(n);
        const double product = (V + d1 * B) * (V + d2 * B);
        const double f = std::log((V + d1 * B) / (V + d2 * B)) / (gasConstant * B * (d1 - d2));
        const double fV = -1.0 / (gasConstant * product);
        const double fVV = (2.0 * V + (d1 + d2) * B) / (gasConstant * product * product);
        const double fB = -(f + V * fV) / B; // as f is homogeneous of degree -1 in V and B
        const double fBV = -(2.0 * fV + V * fVV) / B;
        const double fBB = -(2.0 * fB + V * fBV) / B;
        const double free = 1.0 / (V - B);
        Matrix result(size, Vector(size));
        for (std::size_t i = 0; i < size; ++i)
            for (std::size_t j = 0; j < size; ++j) {
                const double bi = model.compounds[i].covolume;
                const double bj = model.compounds[j].covolume;
                result[i][j] = free * (bi + bj) + moles * free * free * bi * bj -
                               (2.0 * a[i][j] * f + (byMoles[i] * bj + byMoles[j] * bi) * fB + D * fBB * bi * bj) / T;
            }
        return result;
    }

private:
    const MixtureModel &model;
    double T;
    std::size_t size;
    double d1, d2;
    Matrix a; // Pa m6/mol2

    double attraction(const Vector &n, std::size_t i) const
    {
        double sum = 0.0;
        for (std::size_t j = 0; j < size; ++j)
            sum += n[j] * a[i][j];
        return sum;
    }
};

// sqrt(z_i z_j) d2(A / R T) / dn_i dn_j
Matrix stiffness(const MixtureModel &model, const Vector &z, double T, double V)
{
    Matrix matrix = HelmholtzEnergy(model, T).curvature(z, V);
    for (std::size_t i = 0; i < z.size(); ++i)
        for (std::size_t j = 0; j < z.size(); ++j)
            matrix[i][j] = std::sqrt(z[i] * z[j]) * matrix[i][j] + (i == j ? 1.0 : 0.0);
    return matrix;
}

// Whether all eigenvalues of a symmetric matrix are positive, as Cholesky's decomposition tells.
bool isPositive(Matrix matrix)
{
    const std::size_t n = matrix.size();
    for (std::size_t k = 0; k < n; ++k) {
        if (!(matrix[k][k] > 0.0))
            return false;
        for (std::size_t i = k + 1; i < n; ++i)
            for (std::size_t j = k + 1; j <= i; ++j)
                matrix[i][j] -= matrix[i][k] * matrix[j][k] / matrix[k][k];
    }
    return true;
}

// The place between two where something ceases to be.
template <class Condition> double endOf(Condition &&isThere, double there, double gone)
{
    for (int halving = 0; halving < 48; ++halving) {
        const double middle = 0.5 * (there + gone);
        (isThere(middle) ? there : gone) = middle;
    }
    return there;
}

// The highest temperature at which a volume is at the limit of stability.
double spinodalTemperature(const MixtureModel &model, const Vector &z, double V)
{
    constexpr double highest = 1500.0;
    constexpr double ratio = 0.97;
    const auto isStable = [&](double T) { return isPositive(stiffness(model, z, T, V)); };
    double T = highest;
    while (isStable(T))
        T *= ratio;
    return endOf(isStable, T / ratio, T);
}

// The third derivative of A / R T along the vector of the least eigenvalue, at the limit of stability.
double cubicForm(const MixtureModel &model, const Vector &z, double T, double V)
{
    const Vector vector = vectorOfLeast(stiffness(model, z, T, V));
    const HelmholtzEnergy energy(model, T);
    Vector step(z.size());
    double orientation = 0.0; // the vector has either sign
    for (std::size_t i = 0; i < z.size(); ++i) {
        step[i] = vector[i] * std::sqrt(z[i]);
        orientation += step[i] * model.compounds[i].covolume;
    }
    const auto along = [&](double length) {
        Vector n(z);
        for (std::size_t i = 0; i < z.size(); ++i)
            n[i] += length * step[i];
        const Matrix curvature = energy.curvature(n, V);
        double sum = 0.0;
        for (std::size_t i = 0; i < z.size(); ++i) {
            sum += step[i] * step[i] / n[i];
            for (std::size_t j = 0; j < z.size(); ++j)
                sum += step[i] * step[j] * curvature[i][j];
        }
        return sum;
    };
    constexpr double length = 1e-4;
    return std::copysign(1.0, orientation) * (along(length) - along(-length)) / (2.0 * length);
}

} // namespace

std::optional<CriticalPoint> criticalPointOf(const MixtureModel &model, const std::vector<double> &z)
{
    const double covolume = HelmholtzEnergy(model, 300.0).covolume(z);
    const auto value = [&](double V) { return cubicForm(model, z, spinodalTemperature(model, z, V), V); };
    constexpr double largest = 8.0; // volumes, in covolumes
    constexpr double smallest = 1.3;
    constexpr double step = 0.1;
    const bool isPositiveAtFirst = value(largest * covolume) > 0.0;
    const auto isAsAtFirst = [&](double V) { return (value(V) > 0.0) == isPositiveAtFirst; };
    for (double part = largest - step; part > smallest; part -= step) {
        if (isAsAtFirst(part * covolume))
            continue;
        const double V = endOf(isAsAtFirst, (part + step) * covolume, part * covolume);
        const double T = spinodalTemperature(model, z, V);
        const double P = HelmholtzEnergy(model, T).pressure(z, V);
        return P > 0.0 ? std::optional(CriticalPoint{T, P}) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace reference
