// Where frequencies and directions lie on a polar plot.

// tank: 0 degrees along x to the right, anticlockwise, the direction that waves go to.
// nautical: 0 degrees upwards, clockwise, the direction that waves come from.
export type Convention = 'tank' | 'nautical';

export class PolarLayout {
  readonly centre: number;
  readonly radius: number; // of the disc
  readonly ring: [number, number]; // radii of the graph of directions around it

  constructor(
    readonly size: number,
    readonly highest: number, // Hz, at the edge of the disc
    readonly convention: Convention,
  ) {
    this.centre = size / 2;
    const outside = size / 2 - 34; // the names of directions stand outside
    this.ring = [outside - 0.1 * size, outside];
    this.radius = this.ring[0] - 6;
  }

  radiusOf(f: number): number {
    return (Math.max(0, f) / this.highest) * this.radius;
  }

  // The angle on the canvas, clockwise from the right, of a direction of travel in rad.
  screenAngle(direction: number): number {
    return this.convention === 'tank' ? -direction : Math.PI - direction;
  }

  place(radius: number, direction: number): [number, number] {
    const angle = this.screenAngle(direction);
    return [this.centre + radius * Math.cos(angle), this.centre + radius * Math.sin(angle)];
  }

  // The frequency and the direction of travel at a place; nothing outside of the plot.
  at(x: number, y: number): { f: number; direction: number } | undefined {
    const radius = Math.hypot(x - this.centre, y - this.centre);
    if (radius > this.ring[1]) return undefined;
    const angle = Math.atan2(y - this.centre, x - this.centre);
    const direction = this.convention === 'tank' ? -angle : Math.PI - angle;
    return { f: (radius / this.radius) * this.highest, direction };
  }
}

// A direction of travel in the degrees of the convention: -180 to 180, or 0 to 360.
export function degreesOf(direction: number, convention: Convention): number {
  const degrees = (direction * 180) / Math.PI;
  const turned = convention === 'tank' ? degrees : 270 - degrees;
  const full = ((turned % 360) + 360) % 360;
  return convention === 'tank' && full > 180 ? full - 360 : full;
}

export function conventionText(convention: Convention): string {
  return convention === 'tank'
    ? 'Directions that waves go to: 0° along x, 90° along y'
    : 'Directions that waves come from, clockwise: 0° from +y, 90° from +x';
}
