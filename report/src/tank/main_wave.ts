// The peak wave of the sea and its mean direction, from what the summary says.
import type { Summary } from '../data/data';

export interface MainWave {
  period?: number; // s
  direction?: number; // rad, as made
  asked?: number; // rad
  at?: { x: number; y: number }; // where the first sea holds
}

export function mainWave(summary: Summary): MainWave {
  const finding = (key: string) => summary.findings.find((one) => one.key === key);
  const tp = finding('tp');
  const direction = finding('direction');
  const { plan } = summary;
  const at = summary.spectrum?.at ?? summary.seas[0]?.holds;
  const flume = plan?.walls === 'flume';
  const middle = ((plan?.y[0] ?? 0) + (plan?.y[1] ?? 0)) / 2;
  return {
    period: tp?.made ?? tp?.asked ?? peakPeriod(summary),
    // All waves of a flume go the way that its paddles face.
    direction: flume ? (plan.banks[0]?.paddles.angle[0] ?? 0) : (direction?.made ?? meanDirection(summary)),
    asked: direction?.asked ?? undefined,
    at: at && flume ? { x: at.x, y: middle } : at,
  };
}

function peakPeriod({ spectrum }: Summary): number | undefined {
  if (!spectrum) return undefined;
  let peak = -1;
  spectrum.made.forEach((value, i) => {
    if ((value ?? 0) > (spectrum.made[peak] ?? 0)) peak = i;
  });
  return peak >= 0 && spectrum.f[peak] > 0 ? 1 / spectrum.f[peak] : undefined;
}

function meanDirection({ directions }: Summary): number | undefined {
  if (!directions) return undefined;
  let x = 0;
  let y = 0;
  for (const row of directions.variance) {
    row.forEach((value, i) => {
      const angle = (directions.angle[i] + directions.angle[i + 1]) / 2;
      x += (value ?? 0) * Math.cos(angle);
      y += (value ?? 0) * Math.sin(angle);
    });
  }
  return x !== 0 || y !== 0 ? Math.atan2(y, x) : undefined;
}

// The wave number in rad/m of a period in s over a depth in m, by linear theory.
export function waveNumber(period: number, depth: number): number {
  const omega = (2 * Math.PI) / period;
  const deep = (omega * omega) / 9.81;
  if (!(depth > 0)) return NaN;
  // Newton's method for k tanh(k d) = omega^2 / g, from above the solution.
  let k = Math.max(deep, omega / Math.sqrt(9.81 * depth));
  for (let i = 0; i < 20; ++i) {
    const t = Math.tanh(k * depth);
    k -= (k * t - deep) / (t + k * depth * (1 - t * t));
  }
  return k;
}
