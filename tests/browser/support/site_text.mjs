// The script of a plain tank: even bottom, banks of flaps along x = 0.
export function siteText({ names = {}, banks }) {
  const { site = 'Laboratory', tank = 'Basin', config = 'plain' } = names;
  const width = Math.max(...banks.map((bank) => bank.paddles * bank.width));
  return `context {
  site_name = "${site}";
  tank_name = "${tank}";
  config_name = "${config}";
  tank {
    geometry = NoSides;
    units = m;
    max_y = ${width};
    min_y = 0;
    section[2..1];
    section[1] { x = 0; offset = Absolute; depth = "1.0"; }
    section[2] { x = 10; offset = Absolute; }
  }
  limits {
    frequency { units = "Hz"; maximum = 2.0; minimum = 0.1; }
    angle { units = "deg"; maximum = 60; minimum = -60; }
  }
  base_g = 9.81;
  base_rho = 998.2;
  wavemaker_bank[${banks.length}..1];
${banks.map(bankText).join('')}
  rate_units = Hz;
  base_rate = 32;
}
`;
}

function bankText({ name, paddles, width }, index) {
  const places = Array.from({ length: paddles }, (_, i) => `    pad_pos[${i + 1}] { y = ${((i + 0.5) * width).toFixed(4)}; }`);
  return `  wavemaker_bank[${index + 1}] {
    name = "${name}";
    pad_pos[${paddles}..1] { x = 0; y = 0; angle = 0; }
${places.join('\n')}
    flap {
      paddle_width = ${width};
      critical_dimension = 0.8;
      dimension_type = ToSurface;
      paddle_motion { units = "deg"; maximum = 15; minimum = -15; clip_limit = 14; }
    }
  }
`;
}
