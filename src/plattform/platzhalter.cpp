// replaced by the platform work
