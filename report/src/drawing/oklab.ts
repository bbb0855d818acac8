// OKLab (B. Ottosson, 2020), a space of colours in which equal distances look about equal.
export interface Lab {
  lightness: number; // 0 is black, 1 is white
  a: number; // green to red
  b: number; // blue to yellow
}

// By hue in degrees and distance from grey.
export function polar(lightness: number, chroma: number, hue: number): Lab {
  const angle = (hue * Math.PI) / 180;
  return { lightness, a: chroma * Math.cos(angle), b: chroma * Math.sin(angle) };
}

export function distance(one: Lab, other: Lab): number {
  return Math.hypot(one.lightness - other.lightness, one.a - other.a, one.b - other.b);
}

// As bytes of sRGB. Colours that a screen cannot show are cut to the nearest byte.
export function bytes({ lightness, a, b }: Lab): [number, number, number] {
  const long = (lightness + 0.3963377774 * a + 0.2158037573 * b) ** 3;
  const middle = (lightness - 0.1055613458 * a - 0.0638541728 * b) ** 3;
  const short = (lightness - 0.0894841775 * a - 1.291485548 * b) ** 3;
  return [
    byte(4.0767416621 * long - 3.3077115913 * middle + 0.2309699292 * short),
    byte(-1.2684380046 * long + 2.6097574011 * middle - 0.3413193965 * short),
    byte(-0.0041960863 * long - 0.7034186147 * middle + 1.707614701 * short),
  ];
}

function byte(linear: number): number {
  const shown = linear <= 0.0031308 ? 12.92 * linear : 1.055 * linear ** (1 / 2.4) - 0.055;
  return Math.round(255 * Math.min(Math.max(shown, 0), 1));
}
