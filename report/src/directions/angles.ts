// Angles in words and numbers.
import { minus } from '../drawing/axis_ticks';

// rad, the shorter way round: from -pi to pi.
export function turnBetween(from: number, to: number): number {
  return Math.atan2(Math.sin(to - from), Math.cos(to - from));
}

// "−11.7°"; never "−0.0°".
export function degreesText(angle: number): string {
  const degrees = Number(((angle * 180) / Math.PI).toFixed(1));
  return `${minus((degrees === 0 ? 0 : degrees).toFixed(1))}°`;
}
